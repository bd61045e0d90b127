#include "settings/rangetexts.h"

#include "platform/textrules.h"
#include "settings/ballranges.h"

namespace rangetexts {

QString sixRanges(const BallRanges& ranges)
{
    QString text;
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball)
        text += QStringLiteral("球") + textrules::decimal(ball) + QStringLiteral("取值范围:")
                + textrules::decimal(ranges.min(ball)) + QStringLiteral("-") + textrules::decimal(ranges.max(ball))
                + QStringLiteral("\r\n");
    return text;
}

std::optional<ShownRange> rangeOf(const BallRanges& ranges, qint32 ball)
{
    if (ball < 1 || ball > BallRanges::RedBalls)
        return std::nullopt;
    return ShownRange{textrules::decimal(ranges.min(ball)), textrules::decimal(ranges.max(ball))};
}

} // namespace rangetexts
