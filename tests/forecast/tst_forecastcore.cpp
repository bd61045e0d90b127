#include "forecast/forecastcore.h"
#include "forecast/grouphistory.h"
#include "forecast/grouptests.h"
#include "forecasthelpers.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <numeric>

// The forecast core with what it asks of a candidate group: the even and
// average tests and the lookup in the history collections.

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

} // namespace

class ForecastCoreTest : public QObject {
    Q_OBJECT

private slots:
    void evenCountAndAverage_data();
    void evenCountAndAverage();
    void fillKeepsThe17And20CharacterPrefixesAndLookUpFindsTheirBeginnings();
    void indexAnswersAsTheScanDoes();
    void stirCounterRunsOnceUpToTheHighestT();
    void acceptedGroupsKeepTheFixedTests_data();
    void acceptedGroupsKeepTheFixedTests();
    void ballRangesAreHonouredBothEndsIncluded();
    void historyTest_data();
    void historyTest();
    void rulesSeeEveryRedAndEveryCandidateInTheirPlace();
    void attemptLimitGivesUpWithAnEmptyText();
};

void ForecastCoreTest::evenCountAndAverage_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("even");
    QTest::addColumn<int>("average");
    QTest::newRow("history row: the reds and the first blue, not the second") << "08 09 17 25 27 32 06 16" << 3 << 18;
    QTest::newRow("result line with blue: the empty token even, six reds over seven")
        << "08 09 17 25 27 32  06" << 3 << 17;
    QTest::newRow("result line without blue: the missing token even") << "08 09 17 25 27 32" << 3 << 17;
    QTest::newRow("six even reds") << "02 04 06 08 10 12" << 7 << 6;
    QTest::newRow("blanks around: trimmed for the count, not for the average") << "  01 03 05 07 09 11 13  " << 0 << 4;
    // Signs, decimals, exponents and long digit runs go to the general
    // conversion: 4.5 is 4, and ten digits beyond 32 bits are no number.
    QTest::newRow("other number forms") << "+4 4.5 1e1 -3 x 0000000012 7" << 5 << 5;
    QTest::newRow("nine digits, ten digits") << "999999999 01 03 05 07 09 2147483648" << 1 << 142857146;
}

void ForecastCoreTest::evenCountAndAverage()
{
    QFETCH(QString, group);
    QFETCH(int, even);
    QFETCH(int, average);
    QCOMPARE(CountEvenNumbers(group), even);
    QCOMPARE(AverageOfSeven(group), average);
}

void ForecastCoreTest::fillKeepsThe17And20CharacterPrefixesAndLookUpFindsTheirBeginnings()
{
    DrawHistory draws;
    addRows(draws, {" 08 09 17 25 27 32 06 15 ", "01 02 03", "ab cd 17 25 27 32 06 15 01"});
    FillHistoryCollections(draws);
    QCOMPARE(forecastHistory().RedGroupHistory(), (QStringList{"08 09 17 25 27 32", "01 02 03", "ab cd 17 25 27 32"}));
    QCOMPARE(forecastHistory().FullGroupHistory(),
             (QStringList{"08 09 17 25 27 32 06", "01 02 03", "ab cd 17 25 27 32 06"}));
    // A text is found where it begins an item, without regard to case: not
    // further on in an item, and never in a shorter row.
    QStringList withBlue, redsOnly;
    for (const QString text : {"08 09 17 25 27 32 06", "08 09 17 25 27 32 0", "09 17 25 27 32", "01 02 03 04 05 06",
                               "AB Cd 17 25 27 32"}) {
        if (IsInHistory(text, true))
            withBlue << text;
        if (IsInHistory(text, false))
            redsOnly << text;
    }
    QCOMPARE(withBlue, (QStringList{"08 09 17 25 27 32 06", "08 09 17 25 27 32 0", "AB Cd 17 25 27 32"}));
    QCOMPARE(redsOnly, QStringList{"AB Cd 17 25 27 32"});

    FillHistoryCollections(DrawHistory());
    QCOMPARE(forecastHistory().FullGroupHistory(), QStringList());
    QVERIFY(!IsInHistory(QStringLiteral("08 09 17 25 27 32"), false));
}

void ForecastCoreTest::indexAnswersAsTheScanDoes()
{
    // Rows and texts of a few characters, so that they meet often: digits,
    // blanks, letters in both cases, the Kelvin sign and a CJK character, of
    // every length up to beyond 20; every third round has only short rows.
    const QString alphabet = QStringLiteral("0123  aAkK\u212A号");
    QRandomGenerator random(17);
    const auto randomText = [&](int longest) {
        QString text;
        for (int i = int(random.bounded(longest + 1)); i > 0; --i)
            text += alphabet[qsizetype(random.bounded(int(alphabet.size())))];
        return text;
    };
    for (int round = 0; round < 60; ++round) {
        DrawHistory draws;
        QStringList rows, texts;
        for (int i = int(random.bounded(40)); i > 0; --i)
            rows.append(randomText(round % 3 == 0 ? 8 : 24));
        addRows(draws, rows);
        GroupHistory history;
        history.fill(draws);
        for (int i = 0; i < 200; ++i)
            texts.append(randomText(22));
        // Texts that certainly occur: items, their prefixes, case changed.
        for (const QString& item : history.FullGroupHistory() + history.RedGroupHistory())
            texts << item << item.toUpper() << item.toLower() << item.left(item.size() / 2);
        for (const QString& text : texts) {
            for (bool withBlue : {false, true}) {
                const QStringList& items = withBlue ? history.FullGroupHistory() : history.RedGroupHistory();
                QVERIFY2(history.contains(text, withBlue) == GroupHistory::scan(items, text),
                         qPrintable(QStringLiteral("round %1: \"%2\"").arg(round).arg(text)));
            }
        }
    }
}

void ForecastCoreTest::stirCounterRunsOnceUpToTheHighestT()
{
    Core c;
    c.core.WantBlue = 1;
    // Each draw: the stir value (t = nearest(value * 1000) + 300), then the
    // number's. The reds stir up to their highest t, 1000 of the redrawn
    // repeat 5, once; a 34 is drawn again too; the blue stirs from 0 to its
    // own t of 550, and a blue of 17 is taken as 16.
    const auto v = [](int red) { return valueFor(red, 33); };
    c.random.queued = {0.2f, v(5), 0.6f, v(9), 0.7f, v(5), 0.1f, v(1), 0.3f, v(34), 0.3f, v(33), 0.5f, v(20),
                       0.4f, v(12), 0.25f, valueFor(17, 16)};
    c.core.计算彩票组合数();
    QCOMPARE(c.core.GroupText, QStringLiteral("01 05 09 12 20 33  16"));
    QCOMPARE(c.random.randomizeCalls, 8 + 1000 + 1 + 550);
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
    QList<int> evens, sums, gaps;
    for (const QString& line : lines) {
        QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
        const QList<int> reds = redsOf(line);
        evens << int(std::ranges::count_if(reds, [](int red) { return red % 2 == 0; }));
        sums << std::accumulate(reds.begin(), reds.end(), 0);
        for (int k = 1; k < 6; ++k)
            gaps << reds[k] - reds[k - 1];
    }
    // Every end that the tests allow is reached, and none is passed: six odd
    // reds but not six even, reds in order with gaps up to 13, sums of 67 to 157.
    QCOMPARE(*std::ranges::min_element(evens), 0);
    QCOMPARE(*std::ranges::max_element(evens), 5);
    QCOMPARE(*std::ranges::min_element(gaps), 1);
    QCOMPARE(*std::ranges::max_element(gaps), 13);
    QCOMPARE(*std::ranges::min_element(sums), 67);
    QCOMPARE(*std::ranges::max_element(sums), 157);
}

void ForecastCoreTest::ballRangesAreHonouredBothEndsIncluded()
{
    // Each ball has a range of its own; every end is reached, none passed.
    const QList<int> mins{2, 6, 10, 17, 21, 27};
    const QList<int> maxes{5, 9, 16, 20, 26, 30};
    BallRanges ranges;
    std::ranges::copy(mins, ranges.BallMin.begin());
    std::ranges::copy(maxes, ranges.BallMax.begin());
    Core c(99, {}, ranges);
    QList<int> lowest(6, 99), highest(6, 0);
    for (const QString& line : batch(c.core, 300)) {
        const QList<int> reds = redsOf(line);
        for (int k = 0; k < 6; ++k) {
            lowest[k] = std::min(lowest[k], reds[k]);
            highest[k] = std::max(highest[k], reds[k]);
        }
    }
    QCOMPARE(lowest, mins);
    QCOMPARE(highest, maxes);
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
