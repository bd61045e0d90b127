#pragma once

// Simulated annealing over the blocks of a wheel of fixed size: the cost is
// the number of drawn sets that no block serves, a move takes one point out of
// a block and puts another in. Moves aim at a set not served: a block that
// holds one point too few of it is changed so that it serves it. The counts
// of serving blocks are kept up to date move by move, by the colex ranks of
// the sets, so that a move costs a few dozen look-ups.

#include "subsets.h"
#include "wheel/wheeldesign.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace wheelsearch {

using wheel::Block;

class Annealer : SearchBase {
public:
    Annealer(int points, wheel::Guarantee guarantee, std::vector<Block> blocks, std::uint64_t seed);

    const std::vector<Block>& blocks() const { return m_blocks; }
    int unserved() const { return int(m_unserved.size()); }

    // Runs up to `moves` moves, cooling from `hot` to `cold` on a geometric
    // schedule; stops early once every set is served. True when it is.
    // Stops at `deadline` too, unsuccessful.
    bool anneal(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline);

    // Weighted local search, for up to `steps` steps: every step makes some
    // block serve a set not yet served, by the change that costs the least
    // weight, and a change made recently is not undone for a while; where no
    // change gains, the sets still unserved grow heavier. True once every set
    // is served.
    bool weightedSearch(std::int64_t steps, int tenure);

    // Takes out the block whose loss leaves the fewest sets unserved (ties at
    // random).
    void dropWeakest();
    // Takes out a block at random.
    void dropRandom();

private:
    // The set of rank `r` has lost its last serving block, or gained its first.
    void unserved(std::uint32_t r);
    void served(std::uint32_t r);
    void add(Block block, int by);
    template <class Visit> void forServed(Block block, Visit&& visit) const;
    template <class Visit> void forChanged(Block block, Block out, Block in, Visit&& visit) const;
    void pickMove(int& index, Block& out, Block& in);

    int m_points;
    int m_drawn;
    int m_held;
    Block m_all;
    std::vector<Block> m_blocks;
    std::vector<std::uint16_t> m_count;    // serving blocks, by rank of the set
    std::vector<std::uint32_t> m_setOf;    // the set of each rank
    std::vector<std::uint32_t> m_unserved; // ranks of the sets no block serves
    std::vector<std::int32_t> m_place;     // where a rank stands in m_unserved, or -1
    std::vector<std::uint32_t> m_lost;
    std::vector<std::uint32_t> m_gained;
    std::vector<std::uint32_t> m_weight;
    std::vector<std::int64_t> m_changedAt; // step of each block's last change
};

} // namespace wheelsearch
