#pragma once

// "历史验证": what a forecast window's conditions cost. The past draws are put
// to the window's tests as if each had been a candidate of a run on the eve
// of its draw, and every possible red group is counted against them, exactly.
// The tests are the forecast's own (ForecastTests), with the window's rule as
// its run reads it; the conditions are read once, as they stand at the press.

#include "forecast/forecasttests.h"
#include "settings/ballranges.h"

#include <QString>

#include <functional>

class DrawHistory;

// A forecast window's conditions at one moment.
struct ForecastConditions {
    BallRanges ranges;
    ForecastHooks hooks; // the window's rule, its texts as they stood
    bool wantBlue = false;  // "预测蓝色球"
    bool noHistory = false; // "不出现历史开过奖的号码组"
};

namespace historycheck {

constexpr qint64 AllRedGroups = 1107568; // six of 33
constexpr int BlueNumbers = 16;
constexpr int RecentDraws = 100;

struct PastDraws {
    int total = 0;  // the draws whose group holds six reds of 1 to 33 and a blue of 1 to 16
    int passed = 0;
    int recentTotal = 0; // the newest of them, up to RecentDraws
    int recentPassed = 0;
};

// Goes through the draws in the order of their issue numbers, read as whole
// numbers; a row whose issue number is none is left out. Each well-formed
// draw is written as the result line that a run would have made of it and
// put to the tests; the history test looks at the rows before it only.
PastDraws checkPastDraws(const DrawHistory& history, const ForecastConditions& conditions);

// How many of all red groups pass every test but the history test. Pending
// events run after each value of the first red.
qint64 countRedGroups(const ForecastConditions& conditions, const std::function<void()>& letEventsRun = {});

// The report, its lines joined by CR LF. Without any well-formed draw it
// tells of the red groups alone.
QString reportText(const PastDraws& draws, qint64 redGroups, bool wantBlue);

// Both parts and the report.
QString report(const DrawHistory& history, const ForecastConditions& conditions,
               const std::function<void()>& letEventsRun);

} // namespace historycheck
