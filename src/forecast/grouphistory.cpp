#include "forecast/grouphistory.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

namespace {

bool isAscii(const QString& text)
{
    for (QChar c : text) {
        if (c.unicode() >= 0x80)
            return false;
    }
    return true;
}

// Lower case for ASCII letters, which is all that a compare without regard to
// case does to an ASCII character.
QString asciiLower(const QString& text)
{
    QString lower = text;
    for (QChar& c : lower) {
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            c = QChar(c.unicode() + ('a' - 'A'));
    }
    return lower;
}

} // namespace

void GroupHistory::fill(const DrawHistory& history)
{
    m_red.clear();
    m_full.clear();
    for (int row = 0; row < history.count(); ++row)
        add(history.subItem(row, DrawHistory::GroupSubItem));
}

void GroupHistory::add(const QString& groupText)
{
    // Nothing tests the form of a row: a short one goes in as it is.
    const QString group = textrules::trim(groupText);
    m_red.add(group.left(RedWidth));
    m_full.add(group.left(FullWidth));
}

bool GroupHistory::contains(const QString& text, bool withBlue) const
{
    return withBlue ? m_full.contains(text) : m_red.contains(text);
}

bool GroupHistory::scan(const QStringList& items, const QString& text)
{
    for (const QString& item : items) {
        if (textrules::findNoCase(item, text) == 0)
            return true;
    }
    return false;
}

void GroupHistory::Collection::clear()
{
    items.clear();
    folded.clear();
    unindexed.clear();
    longestFolded = 0;
}

void GroupHistory::Collection::add(const QString& item)
{
    items.append(item);
    if (isAscii(item)) {
        folded.insert(asciiLower(item));
        longestFolded = std::max(longestFolded, item.size());
    } else {
        unindexed.append(item);
    }
}

bool GroupHistory::Collection::contains(const QString& text) const
{
    // Outside ASCII a character can equal an ASCII one without regard to case
    // (the Kelvin sign and "k"), which the index can't tell: go through all.
    if (!isAscii(text))
        return scan(items, text);
    // A shorter text may begin a longer item: only the items can tell.
    if (text.size() < longestFolded)
        return scan(items, text);
    return folded.contains(asciiLower(text)) || scan(unindexed, text);
}

GroupHistory& forecastHistory()
{
    static GroupHistory shared;
    return shared;
}

void FillHistoryCollections(const DrawHistory& history)
{
    forecastHistory().fill(history);
}

bool IsInHistory(const QString& text, bool withBlue)
{
    return forecastHistory().contains(text, withBlue);
}
