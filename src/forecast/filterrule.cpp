#include "forecast/filterrule.h"

#include "platform/textrules.h"
#include "settings/ballranges.h"

namespace filterrule {

bool 校验过滤号码的合法性(const QString& forbidden, const BallRanges& ranges)
{
    const QStringList tokens = textrules::split(forbidden, QStringLiteral(" "));
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball) {
        // With the minimum above the maximum the text stays empty.
        QString range;
        for (qint64 v = ranges.min(ball); v <= ranges.max(ball); ++v)
            range += QLatin1Char(' ') + textrules::format00(double(v));
        range = textrules::trim(range);
        for (const QString& raw : tokens) {
            const QString token = textrules::trim(raw);
            if (token.isEmpty())
                continue;
            range = textrules::trim(textrules::replaceNoCase(range, token, QString()));
        }
        if (range.isEmpty())
            return false;
    }
    return true;
}

bool refusesRed(const QString& forbidden, qint32 red)
{
    return textrules::containsNoCase(forbidden, textrules::format00(double(red)));
}

ForecastHooks hooks(std::function<QString()> forbidden)
{
    ForecastHooks rule;
    rule.refuseRed = [forbidden = std::move(forbidden)](qint32 red) { return refusesRed(forbidden(), red); };
    return rule;
}

} // namespace filterrule
