#pragma once

// The group texts of the past draws, as the forecast looks them up: for each
// row of the history, in row order, the first 17 characters of its trimmed
// number text (the six reds) and the first 20 (the reds and the first blue).
// They are rebuilt from the rows each time a forecast window loads; while the
// window is open the main window is blocked, so the rows can't change under
// them.

#include <QSet>
#include <QString>
#include <QStringList>

class DrawHistory;

class GroupHistory {
public:
    static constexpr int RedWidth = 17;
    static constexpr int FullWidth = 20;

    // Drops both collections and makes them anew from the rows.
    void fill(const DrawHistory& history);
    // Adds one row behind the others, from its number text.
    void add(const QString& groupText);

    // True if the text begins an item, compared without regard to case, in
    // FullGroupHistory (withBlue) or RedGroupHistory. With well-formed rows
    // item and text have the same length and a match is equality.
    bool contains(const QString& text, bool withBlue) const;

    // The same answer by going through the items in order, as the rule reads.
    static bool scan(const QStringList& items, const QString& text);

    const QStringList& RedGroupHistory() const { return m_red.items; }
    const QStringList& FullGroupHistory() const { return m_full.items; }

private:
    // A candidate is looked up once for every group that reaches the history
    // test, thousands of times a batch, so each collection keeps an index
    // beside its items. The index holds the items written in ASCII, in lower
    // case; an item with any other character stays out of it and is always
    // compared the slow way. A text can begin an item of its own length only
    // by being equal to it, so a text at least as long as every indexed item
    // is answered by one lookup; any other text goes through the items.
    struct Collection {
        QStringList items;
        QSet<QString> folded;       // the ASCII items, lower case
        QStringList unindexed;      // the items with a character beyond ASCII
        qsizetype longestFolded = 0;

        void clear();
        void add(const QString& item);
        bool contains(const QString& text) const;
    };

    Collection m_red;
    Collection m_full;
};

// The collections that the forecast windows share.
GroupHistory& forecastHistory();

// Rebuilds the shared collections from the rows.
void FillHistoryCollections(const DrawHistory& history);

// Looks the text up in the shared collections.
bool IsInHistory(const QString& text, bool withBlue);
