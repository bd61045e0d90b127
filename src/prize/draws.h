#pragma once

// The draws of the history that bets are checked against.

#include "prize/tiers.h"

#include <QString>

#include <vector>

class DrawHistory;

namespace prize {

struct IssuedDraw {
    QString issue;
    Draw draw;
};

// Every row whose number group starts with six different reds of 1 to 33
// and a blue of 1 to 16, newest first: by issue number as a whole number,
// and rows whose issue number is none behind those, in row order. Other rows
// can't be checked against and are left out.
std::vector<IssuedDraw> checkableDraws(const DrawHistory& history);

// The draw as the prize check shows it: "05 11 21 23 24 29 + 16".
QString drawNumbers(const Draw& draw);

} // namespace prize
