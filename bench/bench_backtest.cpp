// Times the history check of a forecast's conditions at the default ranges:
// the exact count over all red groups under each window's tests (the general
// window plain, the filter window with "02 08 26" forbidden, the bet window
// with two to four of eight bet numbers), and the past-draw part over a
// 3,500-row history with both ticks set. One figure a line as "name: value",
// each the median of several runs, and the counts found.

#include "forecast/betrule.h"
#include "forecast/filterrule.h"
#include "forecast/historycheck.h"
#include "history/drawhistory.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <cstdio>
#include <vector>

namespace {

constexpr int historyRows = 3500;
constexpr int runs = 5;

ForecastConditions conditionsWith(ForecastHooks hooks)
{
    ForecastConditions conditions;
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball) {
        conditions.ranges.min(ball) = 1;
        conditions.ranges.max(ball) = 33;
    }
    conditions.hooks = std::move(hooks);
    conditions.wantBlue = true;
    conditions.noHistory = true;
    return conditions;
}

// The median time of the count, and the count.
void timeCount(const char* name, const ForecastConditions& conditions)
{
    std::vector<double> ms;
    qint64 count = 0;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        count = historycheck::countRedGroups(conditions);
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("backtest_space_%s_ms: %.2f\n", name, benchsupport::median(ms));
    std::printf("backtest_space_%s_count: %lld\n", name, (long long)count);
}

} // namespace

int main()
{
    const ForecastConditions general = conditionsWith({});
    const ForecastConditions filter =
        conditionsWith(filterrule::hooks([forbidden = QStringLiteral("02 08 26")] { return forbidden; }));
    const ForecastConditions bet = conditionsWith(betrule::hooks(
        [bets = betrule::BetNumbers(QStringLiteral("02 08 13 17 21 26 29 31"))](QStringView reds) {
            return betrule::符合投注条件判断(bets, 2, 4, reds);
        }));
    timeCount("general", general);
    timeCount("filter", filter);
    timeCount("bet", bet);

    DrawHistory history;
    QRandomGenerator rows(20261122);
    benchsupport::addRandomDraws(history, historyRows, rows);
    std::vector<double> ms;
    historycheck::PastDraws draws;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        draws = historycheck::checkPastDraws(history, general);
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("backtest_history_3500_ms: %.2f\n", benchsupport::median(ms));
    std::printf("backtest_history_3500_passed: %d of %d\n", draws.passed, draws.total);
    return 0;
}
