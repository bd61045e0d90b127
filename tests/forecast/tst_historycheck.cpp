#include "forecast/betrule.h"
#include "forecast/filterrule.h"
#include "forecast/historycheck.h"
#include "forecasthelpers.h"

#include <QRandomGenerator>
#include <QtTest>

// The history check of a forecast's conditions: the count of all red groups
// against a plain enumeration, the past draws against a history made here,
// and the report.

using namespace forecasttest;

namespace {

// A window's rule told plainly: forbidden reds, or bet numbers and counts.
struct PlainRule {
    QString forbidden;
    QString bets;
    int betMin = 0;
    int betMax = -1; // -1: no bet rule; 0: betMin is exact
};

ForecastConditions conditionsOf(const BallRanges& ranges, const PlainRule& rule = {})
{
    ForecastConditions conditions;
    conditions.ranges = ranges;
    if (!rule.forbidden.isEmpty())
        conditions.hooks = filterrule::hooks([forbidden = rule.forbidden] { return forbidden; });
    else if (rule.betMax >= 0)
        conditions.hooks = betrule::hooks([bets = betrule::BetNumbers(rule.bets), rule](QStringView reds) {
            return betrule::符合投注条件判断(bets, rule.betMin, rule.betMax, reds);
        });
    return conditions;
}

// How many groups of six reds of `low` to `high` pass: each red in its ball's
// range, neighbours at most 13 apart, not six even reds, a sum of 67 to 157,
// no red whose two digits stand in the forbidden text, and as many bet
// numbers (blank-separated) found in the red line as the counts ask.
qint64 plainEnumeration(const BallRanges& ranges, int low, int high, const PlainRule& rule)
{
    qint64 passed = 0;
    for (unsigned set = 0; set < 1u << (high - low + 1); ++set) {
        if (std::popcount(set) != 6)
            continue;
        QList<int> r;
        for (int red = low; red <= high; ++red)
            if (set >> (red - low) & 1)
                r << red;
        const int sum = std::accumulate(r.begin(), r.end(), 0);
        bool ok = sum >= 67 && sum <= 157 && std::ranges::any_of(r, [](int red) { return red % 2 == 1; });
        QString line;
        for (int k = 0; k < 6; ++k) {
            const QString red = QString::asprintf("%02d", r[k]);
            ok = ok && r[k] >= ranges.BallMin[size_t(k)] && r[k] <= ranges.BallMax[size_t(k)]
                 && (k == 0 || r[k] - r[k - 1] <= 13) && (rule.forbidden.isEmpty() || !rule.forbidden.contains(red));
            line += (k > 0 ? " " : "") + red;
        }
        int hits = 0;
        for (const QString& token : rule.bets.split(QLatin1Char(' ')))
            hits += !token.isEmpty() && line.contains(token, Qt::CaseInsensitive) ? 1 : 0;
        if (rule.betMax >= 0)
            ok = ok && (rule.betMax == 0 ? hits == rule.betMin : hits >= rule.betMin && hits <= rule.betMax);
        passed += ok ? 1 : 0;
    }
    return passed;
}

using Counts = QList<int>; // draws: total, passed, recent total, recent passed

} // namespace

Q_DECLARE_METATYPE(Counts)
Q_DECLARE_METATYPE(PlainRule)

class HistoryCheckTest : public QObject {
    Q_OBJECT

private slots:
    void countMatchesThePlainEnumeration();
    void handCountedGroups_data();
    void handCountedGroups();
    void betNumbersOnLinesOfOtherForms();
    void pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory_data();
    void pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory();
    void reportLines_data();
    void reportLines();
};

void HistoryCheckTest::countMatchesThePlainEnumeration()
{
    QRandomGenerator random(20261122);
    const QStringList betTokens{"1", "3", "9", "01", "05", "12", "17", "33", "0", "00", "34", "A1", "123", "\t2"};
    const QString forbiddenCharacters = QStringLiteral("0123456789 ,a");
    const auto pick = [&](int from, int to) { return int(random.bounded(from, to + 1)); };
    for (int round = 0; round < 75; ++round) {
        // Ranges within a stretch of at most 18 reds, which the plain
        // enumeration goes through; no rule, forbidden reds or bet numbers
        // in turn.
        const int low = pick(1, 16);
        const int high = std::min(33, low + pick(12, 17));
        BallRanges ranges;
        for (int k = 0; k < 6; ++k) {
            ranges.BallMin[size_t(k)] = low + pick(0, 2 * k);
            ranges.BallMax[size_t(k)] = high - pick(0, 2 * (5 - k));
        }
        PlainRule plain;
        for (int i = round % 3 == 1 ? pick(1, 12) : 0; i > 0; --i)
            plain.forbidden += forbiddenCharacters[pick(0, int(forbiddenCharacters.size()) - 1)];
        for (int i = round % 3 == 2 ? pick(1, 6) : 0; i > 0; --i)
            plain.bets += QString(pick(1, 2), QLatin1Char(' ')) + betTokens[pick(0, int(betTokens.size()) - 1)];
        if (round % 3 == 2) {
            plain.betMin = pick(0, 3);
            plain.betMax = random.bounded(2) == 0 ? 0 : plain.betMin + pick(1, 2);
        }
        QVERIFY2(historycheck::countRedGroups(conditionsOf(ranges, plain)) == plainEnumeration(ranges, low, high, plain),
                 qPrintable(QStringLiteral("round %1: \"%2\"").arg(round).arg(plain.forbidden + plain.bets)));
    }
}

void HistoryCheckTest::handCountedGroups_data()
{
    QTest::addColumn<BallRanges>("ranges");
    QTest::addColumn<PlainRule>("rule");
    QTest::addColumn<qint64>("count");
    const BallRanges one{{3, 9, 17, 20, 27, 30}, {3, 9, 17, 20, 27, 30}};
    QTest::newRow("ranges that leave one group") << one << PlainRule() << qint64(1);
    // Six of 12 to 20: 84 groups, none of them six even, all within the sums.
    const BallRanges nine{{12, 12, 12, 12, 12, 12}, {20, 20, 20, 20, 20, 20}};
    QTest::newRow("nine reds, no rule") << nine << PlainRule() << qint64(84);
    QTest::newRow("forbidden list leaves five reds") << nine << PlainRule{"12,14 16-18", {}, 0, -1} << qint64(0);
    QTest::newRow("forbidden list leaves six reds") << nine << PlainRule{"12 14 16", {}, 0, -1} << qint64(1);
    QTest::newRow("bet number no group holds") << one << PlainRule{{}, "33", 1, 0} << qint64(0);
    QTest::newRow("default ranges") << fullRanges() << PlainRule() << qint64(858825);
}

void HistoryCheckTest::handCountedGroups()
{
    QFETCH(BallRanges, ranges);
    QFETCH(PlainRule, rule);
    QFETCH(qint64, count);
    int eventRuns = 0;
    QCOMPARE(historycheck::countRedGroups(conditionsOf(ranges, rule), [&eventRuns] { ++eventRuns; }), count);
    // Pending events run after each first red that leaves five above it.
    QCOMPARE(eventRuns, 28);
}

void HistoryCheckTest::betNumbersOnLinesOfOtherForms()
{
    // Five tokens, "1", "01", "a", "00" and "34", searched for in lines that
    // are no lines of reds.
    const betrule::BetNumbers bets(QStringLiteral(" 1  01 a 00 34 "));
    QCOMPARE(bets.hits(u"00 05 09 12 20 33"), 2);
    QCOMPARE(bets.hits(u"01 A5 09 12 20 33"), 3);
    QCOMPARE(bets.hits(u"01 05 09 12 20 33 34"), 3);
}

void HistoryCheckTest::pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory_data()
{
    QTest::addColumn<bool>("wantBlue");
    QTest::addColumn<bool>("noHistory");
    QTest::addColumn<QString>("forbidden");
    QTest::addColumn<Counts>("counts");
    // A hundred older draws of one group, then six of note: 001 (reds out of
    // order), 002 (six even reds), 003, 004, 005 repeating 003 and 006
    // repeating its reds under another blue. The newest hundred leave out the
    // oldest six.
    QTest::newRow("no history test: all but six even") << false << false << "" << Counts{106, 105, 100, 99};
    // Of the hundred only the oldest. 003 is no repeat of 001's text, as a
    // run's test sees it; 004 repeats the reds of the row of 000, which is no
    // draw but history all the same.
    QTest::newRow("history test, reds") << false << true << "" << Counts{106, 3, 100, 2};
    QTest::newRow("history test, reds and blue") << true << true << "" << Counts{106, 5, 100, 4};
    QTest::newRow("a forbidden red") << true << false << "x30" << Counts{106, 101, 100, 95};
}

void HistoryCheckTest::pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory()
{
    QFETCH(bool, wantBlue);
    QFETCH(bool, noHistory);
    QFETCH(QString, forbidden);
    QFETCH(Counts, counts);
    // Issue and group; the rows out of issue order, the repeat first.
    QStringList rows{"2007005 03 09 17 20 27 30 05 00", "2007003 03 09 17 20 27 30 05 00",
                     "2007001 30 27 20 17 09 03 05 00", "2007002 02 04 06 08 10 12 01 00",
                     "2007006 03 09 17 20 27 30 06 00", "2007004 01 05 09 12 20 33 05 00",
                     "2007007 01 05 09 12 20",          "2007008 01 05 09 12 20 34 07 00",
                     "2007009 01 05 09 12 20 20 07 00", "2007010 01 05 09 12 20 33 17 00",
                     "200701x 01 05 09 12 20 33 07 00", "2007000 01 05 09 12 20 33 x7 00"};
    for (int issue = 100; issue >= 1; --issue)
        rows << QStringLiteral("%1 03 10 17 20 27 31 08 00").arg(issue, 7);
    DrawHistory history;
    for (const QString& row : rows) {
        history.add(DrawHistory::keyOf(row.left(7)), row.left(7).trimmed());
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, row.mid(8));
    }
    ForecastConditions conditions = conditionsOf(fullRanges(), {forbidden, {}, 0, -1});
    conditions.wantBlue = wantBlue;
    conditions.noHistory = noHistory;
    const historycheck::PastDraws draws = historycheck::checkPastDraws(history, conditions);
    QCOMPARE((Counts{draws.total, draws.passed, draws.recentTotal, draws.recentPassed}), counts);
}

void HistoryCheckTest::reportLines_data()
{
    QTest::addColumn<Counts>("counts");
    QTest::addColumn<qint64>("groups");
    QTest::addColumn<bool>("wantBlue");
    QTest::addColumn<QString>("report");
    const QString groups = QStringLiteral("满足条件的红球组合：858825组，占全部1107568组的77.54%");
    QTest::newRow("no draws: the groups alone") << Counts{0, 0, 0, 0} << qint64(858825) << false << groups;
    QTest::newRow("with blue, about as often as any group")
        << Counts{2024, 1570, 100, 77} << qint64(858825) << true
        << "全部2024期开奖中有1570期满足当前条件（77.6%）\r\n最近100期开奖中有77期满足当前条件（77.0%）\r\n" + groups
               + "\r\n含蓝球共13741200注\r\n条件效率：1.00\r\n比值接近1：当前条件保留真实开奖号码与保留任意组合的比例相当。";
    QTest::newRow("throwing away past draws")
        << Counts{8, 0, 8, 0} << qint64(1) << false
        << "全部8期开奖中有0期满足当前条件（0.0%）\r\n最近8期开奖中有0期满足当前条件（0.0%）\r\n"
           "满足条件的红球组合：1组，占全部1107568组的0.00%\r\n条件效率：0.00\r\n"
           "比值小于1：当前条件去掉的真实开奖号码，比随机去掉的还多。";
}

void HistoryCheckTest::reportLines()
{
    QFETCH(Counts, counts);
    QFETCH(qint64, groups);
    QFETCH(bool, wantBlue);
    QFETCH(QString, report);
    const historycheck::PastDraws draws{counts[0], counts[1], counts[2], counts[3]};
    QCOMPARE(historycheck::reportText(draws, groups, wantBlue), report);
}

QTEST_GUILESS_MAIN(HistoryCheckTest)

#include "tst_historycheck.moc"
