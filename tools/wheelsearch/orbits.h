#pragma once

// Annealing over wheels that a rotation of the points leaves as they are:
// the points fall into cycles of one length, the rest stay fixed, and a
// wheel is the union of the images of a few representative blocks under
// the rotation and its powers. The search moves the representatives only,
// and counts the drawn sets by their orbits, so that a wheel of a few
// thousand blocks is searched as one of a few hundred. Many of the smallest
// coverings known have such a symmetry.

#include "subsets.h"
#include "wheel/wheeldesign.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace wheelsearch {

using wheel::Block;

struct Rotation {
    int cycle = 1; // length of each cycle
    int fixed = 0; // points that stay, the last ones
};

class OrbitAnnealer : SearchBase {
public:
    OrbitAnnealer(int points, wheel::Guarantee guarantee, Rotation rotation, std::uint64_t seed);

    // Representatives at random, each with a full orbit.
    void randomStart(int representatives);
    int representatives() const { return int(m_blocks.size()); }
    int unserved() const { return int(m_unserved.size()); }

    // Stops at `deadline` too, unsuccessful.
    bool anneal(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline);
    void dropWeakest();

    // Every image of every representative.
    std::vector<Block> design() const;

private:
    Block rotate(Block set) const;
    bool fullOrbit(Block block) const;
    void add(Block block, int by);
    Block randomFullBlock();
    template <class Visit> void forServed(Block block, Visit&& visit) const;
    template <class Visit> void forChanged(Block block, Block out, Block in, Visit&& visit) const;

    int m_points;
    int m_drawn;
    int m_held;
    Rotation m_rotation;
    Block m_all;
    std::uint32_t m_turn[3][256]{}; // the rotation, a byte of the set at a time
    std::vector<Block> m_blocks;    // representatives
    std::vector<std::int32_t> m_orbitOf; // orbit of each drawn set, by rank
    std::vector<Block> m_orbitSet;       // one set of each orbit
    std::vector<std::uint32_t> m_count;  // blocks serving each orbit's sets, counted through the representatives
    std::vector<std::int32_t> m_unserved;
    std::vector<std::int32_t> m_place;
    std::vector<std::int32_t> m_zeroed;
    std::vector<std::int32_t> m_revived;
    std::vector<std::int32_t> m_lost;
    std::vector<std::int32_t> m_gained;
};

} // namespace wheelsearch
