#pragma once

// Annealing over wheels that a group of permutations of the points leaves
// as they are (a rotation and its powers, or the maps x -> ax + b modulo a
// prime): a wheel is the union of the images of a few representative
// blocks under every permutation of the group. The search moves the
// representatives only, and counts the drawn sets by their orbits, so that
// a wheel of a few thousand blocks is searched as one of a few hundred. Many of the smallest
// coverings known have such a symmetry.

#include "subsets.h"
#include "wheel/wheeldesign.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <vector>

namespace wheelsearch {

using wheel::Block;

struct Rotation {
    int cycle = 1; // length of each cycle
    int fixed = 0; // points that stay, the last ones
};

// Every permutation of a group, the identity first: the image of each point.
using Permutation = std::array<std::int8_t, 32>;
using Group = std::vector<Permutation>;

// Both are empty where `points` have no such group.
// The rotation and its powers: the first points in cycles, the rest fixed.
Group rotationGroup(int points, Rotation rotation);
// x -> ax + b modulo `prime` on the first `prime` points, with a in the
// subgroup of order `order` of the units (which must divide prime - 1), the
// other points fixed.
Group affineGroup(int points, int prime, int order);

class OrbitAnnealer : SearchBase {
public:
    OrbitAnnealer(int points, wheel::Guarantee guarantee, Group group, std::uint64_t seed);

    // Representatives at random, each with a full orbit.
    void randomStart(int representatives);
    // The representatives of a design that the group leaves as it is, each
    // with a full orbit; false, and nothing changed, for any other design.
    bool startFrom(const std::vector<Block>& design);
    int representatives() const { return int(m_blocks.size()); }
    int unserved() const { return int(m_unserved.size()); }

    // Stops at `deadline` too, unsuccessful.
    bool anneal(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline);
    void dropWeakest();

    // Every image of every representative.
    std::vector<Block> design() const;

private:
    Block image(std::size_t element, Block set) const;
    bool fullOrbit(Block block) const;
    void add(Block block, int by);
    Block randomFullBlock();
    template <class Visit> void forServed(Block block, Visit&& visit) const;
    template <class Visit> void forChanged(Block block, Block out, Block in, Visit&& visit) const;

    int m_points;
    int m_drawn;
    int m_held;
    Block m_all;
    std::vector<std::array<std::array<std::uint32_t, 256>, 3>> m_images; // each permutation, a byte at a time
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
