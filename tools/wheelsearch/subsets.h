#pragma once

// The search walks subsets as the program's check does.

#include "wheel/wheeldesign.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace wheelsearch {

using wheel::forSubsets;

// One of the bits of `set`, picked by `value` (a random number).
inline wheel::Block randomBit(wheel::Block set, std::uint64_t value)
{
    const int skip = int(value % std::uint64_t(std::popcount(set)));
    for (int i = 0; i < skip; ++i)
        set &= set - 1;
    return set & (~set + 1);
}

// The annealing's schedule: over `moves` moves the temperature falls from
// `hot` to `cold` geometrically, a step every Stage moves; a move that
// leaves `delta` more sets unserved is taken with the chance
// exp(-delta / temperature), none that leaves more than MostDelta.
class Cooling {
public:
    static constexpr int Stage = 1000;
    static constexpr int MostDelta = 16;

    Cooling(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline)
        : m_hot(hot),
          m_cold(cold),
          m_stages(double(std::max<std::int64_t>(1, moves / Stage))),
          m_deadline(deadline)
    {
    }

    // Before each move: false once the deadline has passed.
    bool before(std::int64_t move)
    {
        if (move % Stage != 0)
            return true;
        if (move % (Stage * 64) == 0 && std::chrono::steady_clock::now() > m_deadline)
            return false;
        const double temperature = m_hot * std::pow(m_cold / m_hot, double(move / Stage) / m_stages);
        for (int delta = 1; delta <= MostDelta; ++delta)
            m_chance[std::size_t(delta)] = std::uint32_t(std::exp(-delta / temperature) * 4294967295.0);
        return true;
    }

    // Whether a move is taken; `draw` gives a random 32-bit number, asked
    // for only when the move is worse.
    template <class Draw>
    bool takes(int delta, Draw&& draw) const
    {
        return delta <= 0 || (delta <= MostDelta && draw() < m_chance[std::size_t(delta)]);
    }

private:
    double m_hot;
    double m_cold;
    double m_stages;
    std::chrono::steady_clock::time_point m_deadline;
    std::array<std::uint32_t, MostDelta + 1> m_chance{};
};

// What both searches use: a fast generator (xorshift64*) and the rank of a
// set among the sets of its size, in colex order.
class SearchBase {
protected:
    explicit SearchBase(std::uint64_t state) : m_state(state)
    {
        for (int n = 0; n <= 32; ++n)
            for (int k = 0; k <= 6; ++k)
                m_binomial[n][k] = std::uint32_t(wheel::binomial(n, k));
    }

    std::uint64_t random()
    {
        m_state ^= m_state >> 12;
        m_state ^= m_state << 25;
        m_state ^= m_state >> 27;
        return m_state * 0x2545F4914F6CDD1Dull;
    }

    std::uint32_t rank(std::uint32_t set) const
    {
        std::uint32_t result = 0;
        for (int size = 1; set; ++size) {
            result += m_binomial[std::countr_zero(set)][size];
            set &= set - 1;
        }
        return result;
    }

    std::uint32_t m_binomial[33][7]{};

private:
    std::uint64_t m_state;
};

} // namespace wheelsearch
