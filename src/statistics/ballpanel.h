#pragma once

// The decisions of the chart window's ball panel, with which the user picks
// from the values a ball has taken the smallest and the largest value the
// forecasts may use for it. The panel remembers its picks as positions in its
// two lists, under "球N取值MIN" and "球N取值MAX" in "设置I"; the values picked
// become the ball's range in memory, for balls 1 to 6 only.

#include <QString>

class SettingsStore;
struct BallRanges;

namespace ballpanel {

inline const QString section = QStringLiteral("设置I");

// "球" + ball + "取值MIN" and "球" + ball + "取值MAX", ball being the panel's
// ball number as text.
QString minKey(const QString& ball);
QString maxKey(const QString& ball);

// A position in one of the lists: -1 is no entry selected, as a list with
// nothing in it stands.
struct ListPositions {
    int minIndex = -1; // Combo1
    int maxIndex = -1; // Combo2
};

// The position that a stored text moves a list of `entries` entries to. A
// numeric text goes to its whole-number value and any other text to
// `otherwise`; a position the list doesn't have (beyond its end, or below -1)
// can't be set, and the list stays at `current`.
int storedPosition(const QString& stored, int otherwise, int entries, int current);

// 加载MAXMIN: the positions saved for the ball, read with the defaults 0 and
// the last entry of the maximum list. `current` is where the caller has put
// the lists, their first and last entries.
ListPositions loadPositions(const SettingsStore& store, const QString& ball, int minEntries, int maxEntries,
                            ListPositions current);

// What confirming the panel stores: both positions under the ball's keys, as
// decimal text, and for balls "1" to "6" the texts of the two picked entries
// as the ball's minimum and maximum. An entry text that isn't a number leaves
// that value of the range as it was. Balls "7" and "8" have no range: their
// positions are saved all the same. No check that the minimum lies at or
// below the maximum: a reversed pair is taken as it stands.
void confirm(SettingsStore& store, BallRanges& ranges, const QString& ball, int minIndex, const QString& minText,
             int maxIndex, const QString& maxText);

} // namespace ballpanel
