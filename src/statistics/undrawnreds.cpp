#include "statistics/undrawnreds.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

namespace undrawnreds {

QString 最近未出现号码(DrawHistory& history, int draws)
{
    // The column click of the main list on "彩票期号": the list starts
    // ascending, so the click sorts it descending.
    history.setSortOrder(0);
    history.columnClick(1);

    // Each piece ends in the blank behind its sixth red, which separates it
    // from the next one; the blues never come in.
    QString drawn;
    for (int row = 0; row < draws; ++row)
        drawn += history.subItem(row, DrawHistory::GroupSubItem).left(18);

    const QString blank = QStringLiteral(" ");
    QString reds;
    for (int number = 1; number <= 33; ++number)
        reds += textrules::format00(double(number)) + blank;
    // Textual: a token "8" would take the 8 out of "08", "18" and "28".
    for (const QString& raw : textrules::split(drawn, blank)) {
        const QString token = textrules::trim(raw);
        if (!token.isEmpty())
            reds = textrules::replaceNoCase(reds, token, QString());
    }
    const QString twoBlanks = QStringLiteral("  ");
    while (reds.contains(twoBlanks))
        reds = textrules::replaceNoCase(reds, twoBlanks, blank);
    return textrules::trim(reds);
}

} // namespace undrawnreds
