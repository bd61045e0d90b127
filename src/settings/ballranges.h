#pragma once

// The allowed values of the six red balls, which the forecast honours. They
// live in memory from start to exit and reach the store only then.

#include <QString>

#include <array>

class SettingsStore;

struct BallRanges {
    static constexpr int RedBalls = 6;

    // Ball 1 is element 0. Before the store is read every value is 0, which is
    // what a stored value that isn't a number leaves behind.
    std::array<qint32, RedBalls> BallMin{};
    std::array<qint32, RedBalls> BallMax{};

    qint32& min(int ball) { return BallMin[ball - 1]; }
    qint32& max(int ball) { return BallMax[ball - 1]; }
    qint32 min(int ball) const { return BallMin[ball - 1]; }
    qint32 max(int ball) const { return BallMax[ball - 1]; }
};

namespace ballranges {

inline const QString section = QStringLiteral("设置M");
QString minKey(int ball); // "球N取值MIN"
QString maxKey(int ball); // "球N取值MAX"

// Reads ball 1 MIN, ball 1 MAX, ball 2 MIN and so on to ball 6 MAX, with the
// defaults 1 and 33. A stored text that isn't a whole number leaves its value
// as it was.
void read(const SettingsStore& store, BallRanges& ranges);

// Writes the twelve values in the same order, as plain decimal text.
void write(SettingsStore& store, const BallRanges& ranges);

} // namespace ballranges
