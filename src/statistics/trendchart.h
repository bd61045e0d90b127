#pragma once

// The trend and omission chart (基本走势图): the draws of the history in issue
// order, for each draw and each number its omission (遗漏: 0 where the number
// is drawn, else one more than in the draw before), the indicators of the
// draw's six reds, and the statistics under the chart over the draws shown.
//
// A row of the history counts as a draw when its issue number is a whole
// number and its number group holds six distinct reds of 1 to 33 and a blue
// of 1 to 16; any other row is left out and counted. A text of more than 64
// characters is taken for mistyped and is no number here. Draws are ordered by the
// issue number as a whole number; equal numbers keep the list's order. The
// omissions run over all draws from the first one, so that the newest N draws
// show the true values from their first row on.

#include <QString>

#include <array>
#include <vector>

class DrawHistory;

namespace trendchart {

constexpr int redCount = 33;
constexpr int blueCount = 16;
constexpr int numberCount = redCount + blueCount; // reds first, then blues
constexpr int zoneSize = 11;                      // red zones 01-11, 12-22, 23-33
constexpr int bigFrom = 17;                       // 17 to 33 are 大, 1 to 16 小

// The indicators of a draw, left to right as the chart shows them.
enum Indicator { Sum, Span, AcValue, OddEven, BigSmall, ZoneRatio, Repeats, Consecutive, indicatorCount };
QString indicatorName(int indicator);

struct Draw {
    QString issue;                  // as the row has it, trimmed
    std::array<int, 6> reds{};      // ascending
    int blue = 0;
    // Per number: reds 1 to 33 at 0 to 32, blues 1 to 16 at 33 to 48.
    std::array<qint32, numberCount> omission{};
    int sum = 0;
    int span = 0;
    int ac = 0;
    int odd = 0;
    int big = 0;
    std::array<int, 3> zones{};
    int repeats = 0;     // reds that the draw before also had; 0 for the first draw
    int consecutive = 0; // pairs of sorted reds that differ by 1

    bool has(int numberIndex) const { return omission[size_t(numberIndex)] == 0; }
    // The indicator as the chart writes it: "3:3", "2:2:2", plain numbers.
    QString indicatorText(int indicator) const;
};

struct Chart {
    std::vector<Draw> draws; // oldest first
    int incompleteRows = 0;  // number group not six distinct reds and a blue in range
    int badIssueRows = 0;    // issue number not a whole number
};

// Reads every row of the history; the history itself is left as it is.
Chart build(const DrawHistory& history);

// Parses one number group text: six distinct reds of 1 to 33 (in any order)
// and a blue of 1 to 16 as its first seven tokens, each a whole number by the
// program's conversion. False for anything else.
bool parseGroup(const QString& group, std::array<int, 6>& reds, int& blue);

// The statistics under the chart, one value per number, over the draws shown.
struct Footer {
    std::array<int, numberCount> appearances{}; // 出现次数
    std::array<int, numberCount> meanOmission{}; // 平均遗漏: (shown - appearances) / (appearances + 1), down
    std::array<int, numberCount> longestAbsence{}; // 最大遗漏: longest run of shown draws without it
    std::array<int, numberCount> longestRun{};     // 最大连出: longest run of shown draws with it
};
enum FooterLine { Appearances, MeanOmission, LongestAbsence, LongestRun, footerLineCount };
QString footerLineName(int line);
int footerValue(const Footer& footer, int line, int numberIndex);

// Over draws[first] to draws[first + count - 1].
Footer footer(const Chart& chart, int first, int count);

// The first of the newest `newest` draws; 0 or less, or more than there are,
// means all of them.
int firstShown(const Chart& chart, int newest);

} // namespace trendchart
