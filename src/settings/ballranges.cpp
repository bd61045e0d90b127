#include "settings/ballranges.h"

#include "platform/textrules.h"
#include "settings/settingsstore.h"

namespace ballranges {

QString minKey(int ball)
{
    return QStringLiteral("球%1取值MIN").arg(ball);
}

QString maxKey(int ball)
{
    return QStringLiteral("球%1取值MAX").arg(ball);
}

void read(const SettingsStore& store, BallRanges& ranges)
{
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball) {
        // A failed conversion is skipped: the value keeps what it held.
        if (const auto value = textrules::toWhole(store.read(section, minKey(ball), QStringLiteral("1"))))
            ranges.min(ball) = *value;
        if (const auto value = textrules::toWhole(store.read(section, maxKey(ball), QStringLiteral("33"))))
            ranges.max(ball) = *value;
    }
}

void write(SettingsStore& store, const BallRanges& ranges)
{
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball) {
        store.write(section, minKey(ball), textrules::decimal(ranges.min(ball)));
        store.write(section, maxKey(ball), textrules::decimal(ranges.max(ball)));
    }
}

} // namespace ballranges
