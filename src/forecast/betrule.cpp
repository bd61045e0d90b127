#include "forecast/betrule.h"

#include "platform/runtimefailure.h"
#include "platform/textrules.h"

namespace betrule {

namespace {

const QString blank = QStringLiteral(" ");

qint32 whole(const QString& text)
{
    const std::optional<qint32> value = textrules::toWhole(text);
    if (!value)
        throw RuntimeError(RuntimeError::TypeMismatch);
    return *value;
}

} // namespace

QStringList counts()
{
    return {QStringLiteral("1个"),   QStringLiteral("2个"),   QStringLiteral("3个"),   QStringLiteral("4个"),
            QStringLiteral("5个"),   QStringLiteral("1-2个"), QStringLiteral("1-3个"), QStringLiteral("1-4个"),
            QStringLiteral("1-5个"), QStringLiteral("2-3个"), QStringLiteral("2-4个"), QStringLiteral("2-5个"),
            QStringLiteral("3-4个"), QStringLiteral("3-5个"), QStringLiteral("4-5个")};
}

Text3Check 判断TEXT3的合法性(const QString& countText, const QString& betNumbers)
{
    Text3Check check;
    const QString range = QString(countText).remove(QStringLiteral("个"));
    const QStringList parts = textrules::split(range, QStringLiteral("-"));
    if (parts.size() == 2) {
        check.BetMin = whole(parts[0]);
        check.BetMax = whole(parts[1]);
    } else {
        check.BetMin = whole(range);
    }

    QString clean;
    qint32 count = 0;
    for (const QString& raw : textrules::split(betNumbers, blank)) {
        const QString trimmed = textrules::trim(raw);
        if (trimmed.isEmpty())
            continue;
        const QString token = textrules::format00(trimmed);
        const std::optional<qint32> number = textrules::toWhole(token);
        if (token.size() != 2 || !number || *number < 1 || *number > 33)
            break;
        ++count;
        clean += blank + token;
    }
    check.text = textrules::trim(clean);
    check.valid = check.BetMax == 0 ? check.BetMin <= count : check.BetMin <= count && check.BetMax <= count;
    return check;
}

bool 符合投注条件判断(const QString& betNumbers, qint32 betMin, qint32 betMax, const QString& line)
{
    qint32 hits = 0;
    for (const QString& raw : textrules::split(textrules::trim(betNumbers), blank)) {
        const QString token = textrules::trim(raw);
        if (!token.isEmpty() && textrules::containsNoCase(line, token))
            ++hits;
    }
    return betMax == 0 ? hits == betMin : hits >= betMin && hits <= betMax;
}

ForecastHooks hooks(std::function<bool(const QString& reds)> betTest)
{
    ForecastHooks rule;
    rule.extraTest = [betTest = std::move(betTest)](const QString& groupText) { return betTest(groupText.left(18)); };
    rule.attemptLimit = AttemptLimit;
    return rule;
}

} // namespace betrule
