#pragma once

// The table of wheels that the program ships: the smallest designs the
// project's own search (tools/wheelsearch) has found, one for every number of
// chosen reds from 7 to 20 and every guarantee. In text, each design is a
// line "wheel v m t count" followed by its blocks, each block six letters, a
// for point 1, b for point 2 and so on, ascending; lines starting with "#" are
// comments.

#include "wheel/wheeldesign.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace wheel {

QByteArray formatTable(const std::vector<Design>& designs, const QByteArray& heading = {});
// Reads what it can: an entry that is not well formed (a count that does not
// match its blocks, a letter out of place) is left out, the rest is kept.
std::vector<Design> parseTable(const QByteArray& text);

// The shipped table, read from the program's resources on first use.
const std::vector<Design>& shippedDesigns();
std::optional<Design> shippedDesign(int points, Guarantee guarantee);

} // namespace wheel
