#pragma once

// The tests that a forecast puts a candidate group to, in one place: the run
// of a forecast window throws away every candidate that fails them, and the
// history check asks the very same of past draws and of every possible group.
// In their order: the ball ranges, the gap between neighbouring reds, the
// even and average tests on the result line, the window's own test and, when
// asked for, the test against the past draws. The window's rule in the draw
// (a red that it refuses is drawn again) is here too, for the draw to ask.

#include "settings/ballranges.h"

#include <QString>
#include <QtGlobal>

#include <functional>

class GroupHistory;

// What a window may add to the plain forecast.
struct ForecastHooks {
    // Asked of every red number as it is drawn, before the test for
    // repeats: true refuses the number and draws again.
    std::function<bool(qint32 red)> refuseRed;
    // One more test of a candidate, after the average test and before the
    // history test; it is given the result line. False throws the candidate
    // away.
    std::function<bool(const QString& groupText)> extraTest;
    // Candidates tried for one group at most; 0 for no limit. A call that
    // reaches the limit lets pending events run and gives an empty text.
    int attemptLimit = 0;
};

class ForecastTests {
public:
    static constexpr int RedCount = 6;
    static constexpr qint32 GapLimit = 13;

    // Reads the ranges and the hooks where they stand, at each test.
    ForecastTests(const BallRanges& ranges, const ForecastHooks& hooks);

    // The pieces of the range and gap tests: one ball, one pair of
    // neighbours. Ball i is the i-th smallest red, 1 to 6.
    bool ballInRange(int ball, qint32 number) const
    {
        return number >= m_ranges.BallMin[size_t(ball - 1)] && number <= m_ranges.BallMax[size_t(ball - 1)];
    }
    static bool gapFits(qint32 lower, qint32 higher, qint32 limit) { return higher - lower <= limit; }

    // True if the window's rule refuses the red in the draw.
    bool refusesRed(qint32 red) const { return m_hooks.refuseRed && m_hooks.refuseRed(red); }
    // True if the rule refuses none of the six reds: the groups that a draw
    // under the rule can come to.
    bool allowsReds(const qint32* reds) const;

    // Each of six ascending reds lies in its ball's range, both ends included.
    bool inRanges(const qint32* reds) const;
    // No two neighbouring reds lie further apart than the limit.
    static bool gapsFit(const qint32* reds, qint32 limit);
    // The empty position behind the reds counts as even, so 7 means six even
    // reds; 0 can't occur on a result line. Six odd reds pass.
    static bool evenTest(QStringView line);
    // Six reds over seven: on a result line the reds must add up to 67 to 157.
    static bool averageTest(QStringView line);
    // The window's own test, where it has one.
    bool ruleTest(const QString& line) const { return !m_hooks.extraTest || m_hooks.extraTest(line); }
    // True if the line is not among the past draws: the reds, and with
    // `withBlue` the first blue, as the history writes them.
    static bool notInHistory(const GroupHistory& history, const QString& line, bool withBlue);

    // All the tests of a candidate whose six ascending reds and result line
    // are given, in their order; the history test only with `historyTest`.
    bool passes(const qint32* reds, const QString& line, bool historyTest, bool withBlue,
                const GroupHistory& history) const;

private:
    const BallRanges& m_ranges;
    const ForecastHooks& m_hooks;
};
