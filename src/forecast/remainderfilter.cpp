#include "forecast/remainderfilter.h"

#include "history/drawhistory.h"
#include "platform/runtimefailure.h"
#include "platform/textrules.h"

#include <cmath>

namespace {

const QString blank = QStringLiteral(" ");
const QString lineEnd = QStringLiteral("\r\n");
constexpr int tokensOfAGroup = 6;

} // namespace

QString RemainderFilter::newestReds(DrawHistory& history)
{
    history.setSortOrder(0);
    history.columnClick(1);
    return textrules::trim(history.subItem(0, DrawHistory::GroupSubItem).left(18));
}

QString RemainderFilter::remaindersOf(const QString& reds)
{
    QString collected;
    for (const QString& token : textrules::split(reds, blank)) {
        if (textrules::trim(token).isEmpty())
            continue;
        const std::optional<double> value = textrules::toNumber(token);
        if (!value)
            throw RuntimeError(RuntimeError::TypeMismatch);
        const std::optional<qint32> whole = textrules::toWhole(std::trunc(*value));
        if (!whole)
            throw RuntimeError(RuntimeError::Overflow);
        collected += textrules::decimal(*whole % 3) + blank;
    }
    return textrules::trim(collected);
}

RemainderFilter::RemainderFilter(const QString& remainders)
    : LastRemainders(textrules::split(textrules::trim(remainders), blank))
{
    for (int i = 1; i <= 33; ++i) {
        QString& list = i % 3 == 0 ? RemainderList0 : i % 3 == 1 ? RemainderList1 : RemainderList2;
        list += textrules::format00(double(i)) + blank;
    }
    RemainderList0 = textrules::trim(RemainderList0);
    RemainderList1 = textrules::trim(RemainderList1);
    RemainderList2 = textrules::trim(RemainderList2);
}

const QString* RemainderFilter::listFor(const QString& remainder) const
{
    if (remainder == QLatin1String("0"))
        return &RemainderList0;
    if (remainder == QLatin1String("1"))
        return &RemainderList1;
    if (remainder == QLatin1String("2"))
        return &RemainderList2;
    return nullptr; // a negative red's remainder selects no list, and nothing is found
}

bool RemainderFilter::号码是否合格(const QString& group) const
{
    const QStringList tokens = textrules::split(textrules::trim(group), blank);
    if (tokens.size() != tokensOfAGroup)
        return false;
    for (qsizetype position = 0; position < tokensOfAGroup; ++position) {
        if (position >= LastRemainders.size())
            throw RuntimeError(RuntimeError::SubscriptOutOfRange);
        const QString* list = listFor(LastRemainders[position]);
        if (!list || !textrules::containsNoCase(*list, tokens[position]))
            return false;
    }
    return true;
}

QString RemainderFilter::filterLines(const QString& groups) const
{
    QString collected;
    for (const QString& line : textrules::split(groups, lineEnd)) {
        const QString trimmed = textrules::trim(line);
        if (!trimmed.isEmpty() && 号码是否合格(trimmed))
            collected += trimmed + lineEnd;
    }
    return collected;
}
