#include "history/drawentry.h"

#include "history/numbercolumns.h"
#include "platform/runtimefailure.h"
#include "platform/textrules.h"

namespace drawentry {

namespace {
const QString blank = QStringLiteral(" ");
}

Check check(const QString& issue, const QString& numbers)
{
    if (textrules::trim(issue).isEmpty() || textrules::trim(numbers).isEmpty())
        return Check::Incomplete;
    if (!textrules::isNumeric(issue) || !textrules::isNumeric(QString(numbers).remove(QLatin1Char(' '))))
        return Check::NotNumeric;
    return Check::Complete;
}

QString groupText(const QString& numbers)
{
    const QStringList tokens = textrules::split(textrules::trim(numbers), blank);
    std::vector<qint32> values(size_t(tokens.size()) + 1, 0);
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        // A token that isn't a whole number, such as the empty one between two
        // blanks, leaves its element at 0.
        if (const std::optional<qint32> value = textrules::toWhole(textrules::trim(tokens[i])))
            values[size_t(i)] = *value;
    }
    try {
        排升序6个数字(values);
    } catch (const RuntimeError&) {
        // Fewer than five numbers: the array stays as typed, and the group
        // is written from it unsorted.
    }

    QString group;
    for (size_t position = 0; position < 6 && position < values.size(); ++position)
        group += blank + textrules::format00(double(values[position]));
    for (qsizetype i = 6; i < tokens.size(); ++i) {
        const QString token = textrules::trim(tokens[i]);
        if (!token.isEmpty())
            group += blank + textrules::format00(token);
    }
    return textrules::trim(group);
}

} // namespace drawentry

std::vector<qint32>& 排升序6个数字(std::vector<qint32>& numbers)
{
    return 排序6个数字(numbers);
}
