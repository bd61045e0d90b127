#pragma once

// The texts in which the range windows show the six ball ranges of this run,
// also those not yet stored.

#include <QString>

#include <optional>

struct BallRanges;

namespace rangetexts {

// One line a ball, 1 to 6, each ended by CR LF: "球1取值范围:1-33".
QString sixRanges(const BallRanges& ranges);

struct ShownRange {
    QString minimum;
    QString maximum;
};

// The minimum and maximum that the range window shows for a ball. Balls other
// than 1 to 6 have no range: nothing, and the window keeps showing the ball
// chosen before.
std::optional<ShownRange> rangeOf(const BallRanges& ranges, qint32 ball);

} // namespace rangetexts
