#pragma once

// The search walks subsets as the program's check does.

#include "wheel/wheeldesign.h"

#include <bit>
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
