#include "forecast/grouptests.h"

#include "platform/textrules.h"

namespace {

constexpr int positions = 7;
const QString blank = QStringLiteral(" ");

} // namespace

qint32 CountEvenNumbers(const QString& group)
{
    const QStringList tokens = textrules::split(textrules::trim(group), blank);
    qint32 count = 0;
    for (int i = 0; i < positions; ++i) {
        // Each failed test counts as even: no token, no number, a failed conversion.
        if (i >= tokens.size()) {
            ++count;
            continue;
        }
        const std::optional<qint32> value = textrules::toWhole(textrules::trim(tokens[i]));
        if (!value || *value % 2 == 0)
            ++count;
    }
    return count;
}

qint32 AverageOfSeven(const QString& group)
{
    const QStringList tokens = textrules::split(group, blank);
    qint64 sum = 0;
    for (int i = 0; i < positions && i < tokens.size(); ++i) {
        if (const std::optional<qint32> value = textrules::toWhole(tokens[i]))
            sum += *value; // an unreadable token adds nothing
    }
    return textrules::toWhole(double(sum) / positions).value_or(0);
}
