#include "history/insertline.h"

#include "history/drawhistory.h"
#include "history/numbercolumns.h"
#include "platform/textrules.h"

#include <vector>

void 导入一行(DrawHistory& history, QString& line)
{
    static const QString blank = QStringLiteral(" ");
    if (textrules::trim(line).isEmpty())
        return;
    line.replace(QLatin1Char(','), QLatin1Char(' '));

    QStringList tokens = textrules::split(textrules::trim(line), blank);
    if (tokens.size() == 8)
        tokens.append(QStringLiteral("00")); // the missing second blue
    if (tokens.size() != 9)
        return;

    std::vector<qint32> reds(7, 0);
    for (int i = 0; i < 6; ++i) {
        // A red that isn't a number leaves its element at 0.
        if (const std::optional<qint32> red = textrules::toWhole(textrules::trim(tokens[i + 1])))
            reds[size_t(i)] = *red;
    }
    排序6个数字(reds);

    QString group;
    for (int i = 0; i < 6; ++i)
        group += blank + textrules::format00(double(reds[size_t(i)]));
    // The blues are never converted: a blue that isn't numeric is kept as typed,
    // and an empty blue token is left out of the group.
    for (int i = 7; i < 9; ++i) {
        const QString blue = textrules::trim(tokens[i]);
        if (!blue.isEmpty())
            group += blank + textrules::format00(blue);
    }

    const QString issue = textrules::trim(tokens[0]);
    // An issue number that is there already: adding fails, and the line ends
    // with no effect, the row in the list untouched.
    if (!history.add(DrawHistory::keyOf(issue), issue))
        return;
    const int row = history.count() - 1;
    history.setSubItem(row, DrawHistory::GroupSubItem, textrules::trim(group));
    history.setSubItem(row, 2, QString());
}

void importLines(DrawHistory& history, const QString& text)
{
    DrawHistory::Batch batch(history);
    QStringList lines = textrules::split(textrules::trim(text), QStringLiteral("\r\n"));
    for (QString& line : lines)
        导入一行(history, line);
}
