#include "forecast/forecastcore.h"
#include "forecast/grouphistory.h"
#include "forecasthelpers.h"

#include <QRegularExpression>
#include <QtTest>

#include <array>
#include <numeric>

using namespace forecasttest;

namespace {

// A core over its own generator, ranges and history.
struct Core {
    explicit Core(quint64 seed = 12345, ForecastHooks hooks = {}, const BallRanges& r = fullRanges())
        : random(seed), ranges(r), core(random, ranges, history, std::move(hooks))
    {
    }
    ScriptedRandom random;
    BallRanges ranges;
    GroupHistory history;
    ForecastCore core;
};

// The lines of a batch of `count` groups; every line must end in CR LF.
QStringList batch(ForecastCore& core, int count)
{
    core.GroupCount = count;
    QStringList lines = core.batchText().split(QStringLiteral("\r\n"));
    return lines.takeLast().isEmpty() ? lines : QStringList();
}

QList<int> redsOf(const QString& line)
{
    QList<int> reds;
    for (const QString& token : line.left(17).split(QLatin1Char(' ')))
        reds.append(token.toInt());
    return reds;
}

// The first number whose count lies more than five standard deviations away
// from its share of chances(n) out of `parts`; -1 when none does.
template <size_t N, class Chances>
int outsideOdds(const std::array<int, N>& counts, Chances chances, double parts)
{
    const double total = std::accumulate(counts.begin(), counts.end(), 0.0);
    for (size_t n = 0; n < N; ++n) {
        const double p = chances(int(n)) / parts;
        if (std::abs(counts[n] - total * p) > 5 * std::sqrt(total * p * (1 - p)))
            return int(n);
    }
    return -1;
}

} // namespace

class ForecastCoreTest : public QObject {
    Q_OBJECT

private slots:
    void stirCounterRunsOnceUpToTheHighestT();
    void acceptedGroupsKeepTheFixedTests_data();
    void acceptedGroupsKeepTheFixedTests();
    void ballRangesAreHonouredBothEndsIncluded();
    void redOneAndBlueSixteenHaveTheirOwnOdds();
    void historyTest_data();
    void historyTest();
    void rulesSeeEveryRedAndEveryCandidateInTheirPlace();
    void attemptLimitGivesUpWithAnEmptyText();
};

void ForecastCoreTest::stirCounterRunsOnceUpToTheHighestT()
{
    Core c;
    c.core.WantBlue = 1;
    // Each draw: the stir value (t = nearest(value * 1000) + 300), then the
    // number's. The reds stir up to their highest t, 1000 of the redrawn
    // repeat 5, once; the blue stirs from 0 to its own t of 550.
    const auto v = [](int red) { return valueFor(red, 33); };
    c.random.queued = {0.2f, v(5), 0.6f, v(9), 0.7f, v(5), 0.1f, v(1), 0.3f, v(33), 0.5f, v(20), 0.4f, v(12),
                       0.25f, 31.0f / 32.0f};
    c.core.计算彩票组合数();
    QCOMPARE(c.core.GroupText, QStringLiteral("01 05 09 12 20 33  16")); // a blue of 17 is taken as 16
    QCOMPARE(c.random.randomizeCalls, 7 + 1000 + 1 + 550);
    QVERIFY(c.random.queued.empty());
}

void ForecastCoreTest::acceptedGroupsKeepTheFixedTests_data()
{
    QTest::addColumn<int>("wantBlue");
    QTest::addColumn<quint64>("seed");
    QTest::newRow("without blue") << 0 << quint64(7);
    QTest::newRow("with blue") << 1 << quint64(20261122);
}

void ForecastCoreTest::acceptedGroupsKeepTheFixedTests()
{
    QFETCH(int, wantBlue);
    QFETCH(quint64, seed);
    Core c(seed);
    c.core.WantBlue = wantBlue;
    const QStringList lines = batch(c.core, 4000);
    QCOMPARE(lines.size(), 4000);
    // Widths 17 and 21: two blanks before a blue of 01 to 16.
    const QRegularExpression form(wantBlue ? QStringLiteral("^(\\d\\d ){5}\\d\\d  (0[1-9]|1[0-6])$")
                                           : QStringLiteral("^(\\d\\d ){5}\\d\\d$"));
    int sixOdd = 0, gapOf13 = 0, lowest = 1000, highest = 0;
    for (const QString& line : lines) {
        QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
        const QList<int> reds = redsOf(line);
        int even = 0;
        for (int k = 0; k < 6; ++k) {
            const int gap = k > 0 ? reds[k] - reds[k - 1] : 1;
            QVERIFY2(reds[k] >= 1 && reds[k] <= 33 && gap > 0 && gap <= 13, qPrintable(line));
            gapOf13 += gap == 13;
            even += reds[k] % 2 == 0;
        }
        const int sum = std::accumulate(reds.begin(), reds.end(), 0);
        QVERIFY2(even < 6 && sum >= 67 && sum <= 157, qPrintable(line));
        sixOdd += even == 0;
        lowest = std::min(lowest, sum);
        highest = std::max(highest, sum);
    }
    // Six odd reds and a gap of 13 pass, and the sums come near both bounds.
    QVERIFY(sixOdd > 0);
    QVERIFY(gapOf13 > 0);
    QVERIFY(lowest < 75 && highest > 145);
}

void ForecastCoreTest::ballRangesAreHonouredBothEndsIncluded()
{
    const QList<int> mins{2, 6, 10, 17, 21, 27};
    const QList<int> maxes{5, 9, 16, 20, 26, 30};
    BallRanges ranges;
    for (int ball = 1; ball <= 6; ++ball) {
        ranges.min(ball) = mins[ball - 1];
        ranges.max(ball) = maxes[ball - 1];
    }
    Core c(99, {}, ranges);
    const QStringList lines = batch(c.core, 300);
    QCOMPARE(lines.size(), 300);
    QList<int> lowest(6, 99), highest(6, 0);
    for (const QString& line : lines) {
        const QList<int> reds = redsOf(line);
        for (int k = 0; k < 6; ++k) {
            lowest[k] = std::min(lowest[k], reds[k]);
            highest[k] = std::max(highest[k], reds[k]);
        }
    }
    QCOMPARE(lowest, mins);
    QCOMPARE(highest, maxes);
}

void ForecastCoreTest::redOneAndBlueSixteenHaveTheirOwnOdds()
{
    // The rule hook sees every red as it is drawn, 34 already redrawn: the
    // conversion alone. Red 1 has 1 chance in 65, each of 2 to 33 has 2.
    std::array<int, 35> reds{};
    ForecastHooks hooks;
    hooks.refuseRed = [&reds](qint32 red) {
        ++reds[size_t(red)];
        return false;
    };
    Core redCore(4242, hooks);
    for (int group = 0; group < 12000; ++group)
        redCore.core.产生红色球(6);
    QCOMPARE(outsideOdds(reds, [](int n) { return n < 1 || n > 33 ? 0 : n == 1 ? 1 : 2; }, 65.0), -1);

    // Blue 1 has 1 chance in 32, each of 2 to 15 has 2, and 16 has 3.
    std::array<int, 18> blues{};
    Core blueCore(777);
    for (int i = 0; i < 64000; ++i)
        ++blues[size_t(blueCore.core.产生蓝色球())];
    QCOMPARE(outsideOdds(blues, [](int n) { return n < 1 || n > 16 ? 0 : n == 1 ? 1 : n == 16 ? 3 : 2; }, 32.0),
             -1);
}

void ForecastCoreTest::historyTest_data()
{
    QTest::addColumn<int>("noHistory");
    QTest::addColumn<int>("blue"); // 0: blue off
    QTest::addColumn<bool>("refused");
    QTest::newRow("blue off: the reds of a past draw refused") << 1 << 0 << true;
    QTest::newRow("blue on: the same seven refused") << 1 << 6 << true;
    QTest::newRow("blue on: the same reds under another blue pass") << 1 << 7 << false;
    QTest::newRow("Check2 off: a past draw passes") << 0 << 0 << false;
}

void ForecastCoreTest::historyTest()
{
    QFETCH(int, noHistory);
    QFETCH(int, blue);
    QFETCH(bool, refused);
    DrawHistory draws;
    addRows(draws, {"01 02 03 04 05 06 07 00", "08 09 17 25 27 32 06 15"});
    Core c;
    c.history.fill(draws);
    c.core.WantBlue = blue > 0 ? 1 : 0;
    c.core.NoHistory = noHistory;
    queueGroup(c.random, {8, 9, 17, 25, 27, 32}, blue);
    queueGroup(c.random, {3, 9, 17, 20, 27, 30}, blue);
    const QString blueText = blue > 0 ? QStringLiteral("  %1").arg(blue, 2, 10, QLatin1Char('0')) : QString();
    QCOMPARE(c.core.预测号码(), (refused ? "03 09 17 20 27 30" : "08 09 17 25 27 32") + blueText);
}

void ForecastCoreTest::rulesSeeEveryRedAndEveryCandidateInTheirPlace()
{
    // A tiny rule: red 7 is refused, and only a group beginning with 03 passes.
    QList<qint32> asked;
    QStringList offered;
    ForecastHooks hooks;
    hooks.refuseRed = [&asked](qint32 red) {
        asked.append(red);
        return red == 7;
    };
    hooks.extraTest = [&offered](const QString& groupText) {
        offered.append(groupText);
        return groupText.startsWith(QStringLiteral("03"));
    };
    Core c(12345, hooks);
    c.core.WantBlue = 1;
    // Six even reds never reach the extra test. Then 5 twice (a repeat) and 7
    // are asked before the repeat test; a blue of 7 is not asked at all.
    queueGroup(c.random, {2, 4, 6, 8, 10, 12}, 5);
    queueGroup(c.random, {5, 5, 7, 9, 1, 33, 20, 12}, 7);
    queueGroup(c.random, {3, 9, 17, 20, 27, 30}, 6);
    QCOMPARE(c.core.预测号码(), QStringLiteral("03 09 17 20 27 30  06"));
    QCOMPARE(asked, (QList<qint32>{2, 4, 6, 8, 10, 12, 5, 5, 7, 9, 1, 33, 20, 12, 3, 9, 17, 20, 27, 30}));
    QCOMPARE(offered, (QStringList{"01 05 09 12 20 33  07", "03 09 17 20 27 30  06"}));
}

void ForecastCoreTest::attemptLimitGivesUpWithAnEmptyText()
{
    ForecastHooks hooks;
    hooks.extraTest = [](const QString& groupText) { return groupText.startsWith(QStringLiteral("03")); };
    hooks.attemptLimit = 2;
    Core c(12345, hooks);
    int eventRuns = 0;
    c.core.letEventsRun = [&eventRuns] { ++eventRuns; };
    queueGroup(c.random, {1, 5, 9, 12, 20, 33});
    queueGroup(c.random, {1, 5, 9, 12, 20, 33});
    QCOMPARE(c.core.预测号码(), QString());
    QCOMPARE(eventRuns, 1);
    // A batch leaves out the group it gave up and goes on. Six even reds,
    // thrown away by the fixed tests, count as an attempt too.
    queueGroup(c.random, {2, 4, 6, 8, 10, 12});
    queueGroup(c.random, {1, 5, 9, 12, 20, 33});
    queueGroup(c.random, {3, 9, 17, 20, 27, 29});
    QCOMPARE(batch(c.core, 2), QStringList{"03 09 17 20 27 29"});
    QCOMPARE(eventRuns, 2);
}

QTEST_GUILESS_MAIN(ForecastCoreTest)

#include "tst_forecastcore.moc"
