#pragma once

// From a design to the tickets a player buys: the points 1..v become the
// chosen reds in ascending order, and the tickets are checked once more, as
// they stand, over every drawn set of the chosen reds before anyone sees
// them. Then their text, as the forecast writes its result lines.

#include "wheel/wheeldesign.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace wheel {

using Ticket = std::array<int, TicketReds>;

struct Wheel {
    std::vector<Ticket> tickets; // each ascending, in ascending order
    bool fromTable = false;      // false: made on the spot
};

// The tickets of a design on these reds (ascending, one for every point).
std::vector<Ticket> ticketsOf(const Design& design, const std::vector<int>& reds);

// Whether the tickets keep the guarantee: for every `drawn` of the chosen
// reds some ticket holds `held` of them. Tickets with a red that was not
// chosen, or one red twice, fail.
bool ticketsKeep(const std::vector<int>& reds, Guarantee guarantee, const std::vector<Ticket>& tickets);

// The wheel for 7 to 20 chosen reds (ascending, distinct): the shipped
// design, or where the table lacks one or its design fails the check, one
// made on the spot. Nothing when no wheel passes the check.
std::optional<Wheel> makeWheel(const std::vector<int>& reds, Guarantee guarantee);
// The same with the table's entry handed in.
std::optional<Wheel> makeWheel(const std::vector<int>& reds, Guarantee guarantee,
                               const std::optional<Design>& tableDesign);

// The result line of a ticket, with the blue after two blanks unless it is 0.
QString ticketLine(const Ticket& ticket, int blue);

// One result line a ticket and blue: "08 09 17 25 27 32", or with the blue
// after two blanks, "08 09 17 25 27 32  06"; every ticket is repeated for
// each blue in turn. Each line ends in CR LF.
QString ticketLines(const std::vector<Ticket>& tickets, const std::vector<int>& blues);

// "共 132 注，金额 264 元", or with blues "44 组红球 × 3 个蓝球，共 132 注，金额 264 元".
QString costText(qsizetype tickets, qsizetype blues);

} // namespace wheel
