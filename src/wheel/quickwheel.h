#pragma once

// Wheels made on the spot, for a number of reds or a guarantee that the
// shipped table lacks: a greedy search that is quick rather than small, and
// the ways a wheel for one case serves another.

#include "wheel/wheeldesign.h"

namespace wheel {

// Greedy: while some set of `drawn` points is not served, a ticket is begun
// on `held` of its points and filled up, point by point, with the point that
// serves the most sets not yet served; ties go by `seed`. Tickets that every
// set they serve can do without are dropped at the end. The result always has
// the guarantee. Blocks of `start` are taken first, as they are.
Design greedyDesign(int points, Guarantee guarantee, quint64 seed = 1, const std::vector<Block>& start = {});

// A wheel on one point fewer: the last point is taken out of every block
// that holds it and the lowest point the block lacks put in. The guarantee
// stays: a set without the last point keeps all it had in every block.
Design withoutLastPoint(const Design& design);

// Whether a wheel with guarantee `given` also has guarantee `wanted`: it does
// when it serves fewer drawn reds with as many held.
bool serves(Guarantee given, Guarantee wanted);

} // namespace wheel
