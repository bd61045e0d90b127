#pragma once

// How a forecast window makes number groups for the next draw: rejection
// sampling. A whole candidate group is drawn at random, tested, and thrown
// away on any failed test; the first one that passes is the result. What is
// random is the six reds and the blue; the sort, the tests and the text form
// are fixed. The three forecast windows share this one implementation; each
// window adds its own rule through the hooks.

#include "forecast/forecasttests.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

class GroupHistory;
class RandomSource;
struct BallRanges;

class ForecastCore {
public:
    using Hooks = ForecastHooks;

    static constexpr int RedCount = 6;
    static constexpr int RedHighest = 33;
    static constexpr int BlueHighest = 16;
    static constexpr qint32 GapLimit = ForecastTests::GapLimit;

    ForecastCore(RandomSource& random, const BallRanges& ranges, const GroupHistory& history, Hooks hooks = {});
    // The tests hold on to the core's own hooks.
    ForecastCore(const ForecastCore&) = delete;
    ForecastCore& operator=(const ForecastCore&) = delete;

    // Lets pending events run; the window hands in the event loop's.
    std::function<void()> letEventsRun = [] {};

    // Run state, overwritten by every candidate and every run.
    std::vector<qint32> Balls;
    qint32 Blue = 0;
    QString GroupText;
    qint32 GroupCount = 0;
    qint32 WantBlue = 0;
    qint32 NoHistory = 0;

    void 产生红色球(int n);
    bool 在产生的红色球中查找(qint32 number) const;
    qint32 产生蓝色球();
    void 计算彩票组合数();
    bool 判断是否在最大几率范围以内() const;
    bool 判断相邻2数之差是否合理(qint32 limit) const;
    QString 预测号码();

    // The text of a batch of GroupCount groups, each line ended by CR LF,
    // built in memory; pending events run after every 1000th group. Where the
    // window has a limit, a group that was not found leaves no line.
    QString batchText();

    // The result line of six ascending reds: two digits each, one blank
    // between them, and with a blue two blanks and the blue behind them.
    static QString resultLine(const qint32* reds, bool withBlue, qint32 blue);

private:
    RandomSource& m_random;
    const BallRanges& m_ranges;
    const GroupHistory& m_history;
    Hooks m_hooks;
    ForecastTests m_tests;
};
