#include "forecast/betrule.h"
#include "forecast/filterrule.h"
#include "forecast/forecastcore.h"
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

ForecastHooks hooksOf(const PlainRule& rule)
{
    if (!rule.forbidden.isEmpty())
        return filterrule::hooks([forbidden = rule.forbidden] { return forbidden; });
    if (rule.betMax >= 0)
        return betrule::hooks([bets = betrule::BetNumbers(rule.bets), rule](QStringView reds) {
            return betrule::符合投注条件判断(bets, rule.betMin, rule.betMax, reds);
        });
    return {};
}

QString redLine(const std::array<int, 6>& reds)
{
    return QString::asprintf("%02d %02d %02d %02d %02d %02d", reds[0], reds[1], reds[2], reds[3], reds[4], reds[5]);
}

// Every ascending group of six reds of `low` to `high` that passes: each red in
// its ball's range, neighbours at most 13 apart, not six even reds, a sum of
// 67 to 157, no red whose two digits stand in the forbidden text, and as many
// bet numbers (blank-separated, blanks around ignored) found in the red line
// as the counts ask. Their red lines, in ascending order.
QStringList plainEnumeration(const BallRanges& ranges, int low, int high, const PlainRule& rule)
{
    QStringList passed;
    std::array<int, 6> r{};
    const auto place = [&](auto&& self, int index, int from) -> void {
        for (int red = from; red <= high; ++red) {
            r[size_t(index)] = red;
            if (index < 5) {
                self(self, index + 1, red + 1);
                continue;
            }
            bool ok = true;
            int evens = 0, sum = 0;
            for (int k = 0; k < 6; ++k) {
                ok = ok && r[size_t(k)] >= ranges.BallMin[size_t(k)] && r[size_t(k)] <= ranges.BallMax[size_t(k)];
                ok = ok && (k == 0 || r[size_t(k)] - r[size_t(k - 1)] <= 13);
                evens += r[size_t(k)] % 2 == 0 ? 1 : 0;
                sum += r[size_t(k)];
            }
            if (!ok || evens == 6 || sum < 67 || sum > 157)
                continue;
            const QString line = redLine(r);
            for (int k = 0; k < 6 && !rule.forbidden.isEmpty(); ++k)
                ok = ok && !rule.forbidden.contains(QString::asprintf("%02d", r[size_t(k)]));
            if (rule.betMax >= 0) {
                int hits = 0;
                for (const QString& token : rule.bets.split(QLatin1Char(' ')))
                    hits += !token.isEmpty() && line.contains(token, Qt::CaseInsensitive) ? 1 : 0;
                ok = ok && (rule.betMax == 0 ? hits == rule.betMin : hits >= rule.betMin && hits <= rule.betMax);
            }
            if (ok)
                passed.append(line);
        }
    };
    place(place, 0, low);
    return passed;
}

ForecastConditions conditionsOf(const BallRanges& ranges, const PlainRule& rule = {})
{
    ForecastConditions conditions;
    conditions.ranges = ranges;
    conditions.hooks = hooksOf(rule);
    return conditions;
}

// Ranges that pin every ball to one red of the group.
BallRanges pinned(const std::array<int, 6>& reds)
{
    BallRanges ranges;
    std::ranges::copy(reds, ranges.BallMin.begin());
    std::ranges::copy(reds, ranges.BallMax.begin());
    return ranges;
}

// Draws with their issue numbers, in the row order given.
void addDraws(DrawHistory& history, const QList<QPair<QString, QString>>& draws)
{
    for (const auto& [issue, group] : draws) {
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
    }
}

using Counts = QList<int>; // total, passed, recent total, recent passed

Counts countsOf(const historycheck::PastDraws& draws)
{
    return {draws.total, draws.passed, draws.recentTotal, draws.recentPassed};
}

} // namespace

class HistoryCheckTest : public QObject {
    Q_OBJECT

private slots:
    void countMatchesThePlainEnumeration_data();
    void countMatchesThePlainEnumeration();
    void handCountedGroups_data();
    void handCountedGroups();
    void betNumbersOnLinesOfOtherForms_data();
    void betNumbersOnLinesOfOtherForms();
    void pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory_data();
    void pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory();
    void newestHundredDraws();
    void reportLines_data();
    void reportLines();
};

void HistoryCheckTest::countMatchesThePlainEnumeration_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<quint64>("seed");
    QTest::newRow("general") << "none" << quint64(1);
    QTest::newRow("filter") << "forbidden" << quint64(2);
    QTest::newRow("bet") << "bets" << quint64(3);
}

void HistoryCheckTest::countMatchesThePlainEnumeration()
{
    QFETCH(QString, rule);
    QFETCH(quint64, seed);
    QRandomGenerator random(seed);
    const QStringList betTokens{"1", "3", "9", "01", "03", "05", "10", "12", "17", "20", "33",
                                "0", "00", "34", "1a", "A1", "123", "\t2", "x"};
    const QString forbiddenCharacters = QStringLiteral("0123456789 ,a");
    const auto pick = [&](int from, int to) { return int(random.bounded(from, to + 1)); };
    for (int round = 0; round < 25; ++round) {
        // Ranges within a stretch of at most 18 reds, so that the plain
        // enumeration covers every group that they let through.
        const int low = pick(1, 16);
        const int high = std::min(33, low + pick(12, 17));
        BallRanges ranges;
        for (int k = 0; k < 6; ++k) {
            ranges.BallMin[size_t(k)] = low + pick(0, 2 * k);
            ranges.BallMax[size_t(k)] = high - pick(0, 2 * (5 - k));
        }
        PlainRule plain;
        if (rule == "forbidden") {
            for (int i = pick(1, 12); i > 0; --i)
                plain.forbidden += forbiddenCharacters[pick(0, int(forbiddenCharacters.size()) - 1)];
        } else if (rule == "bets") {
            plain.bets = QString(pick(0, 2), QLatin1Char(' '));
            for (int i = pick(1, 6); i > 0; --i)
                plain.bets += betTokens[pick(0, int(betTokens.size()) - 1)] + QString(pick(1, 2), QLatin1Char(' '));
            plain.betMin = pick(0, 3);
            plain.betMax = random.bounded(2) == 0 ? 0 : plain.betMin + pick(1, 2);
        }
        ForecastConditions conditions = conditionsOf(ranges, plain);
        // The lines that reach the window's own test are the result lines of
        // the groups, in order.
        QStringList offered;
        if (rule == "none")
            conditions.hooks.extraTest = [&offered](const QString& line) {
                offered.append(line);
                return true;
            };
        const QStringList expected = plainEnumeration(ranges, low, high, plain);
        const QString about = QStringLiteral("round %1, %2-%3, \"%4\"").arg(round).arg(low).arg(high).arg(
            plain.forbidden + plain.bets);
        QVERIFY2(historycheck::countRedGroups(conditions) == expected.size(), qPrintable(about));
        if (rule == "none")
            QCOMPARE(offered, expected);
    }
}

void HistoryCheckTest::handCountedGroups_data()
{
    QTest::addColumn<BallRanges>("ranges");
    QTest::addColumn<QString>("forbidden");
    QTest::addColumn<QString>("bets");
    QTest::addColumn<int>("betMin");
    QTest::addColumn<qint64>("count");
    QTest::newRow("ranges that leave one group") << pinned({3, 9, 17, 20, 27, 30}) << "" << "" << -1 << qint64(1);
    QTest::newRow("one group, six even reds") << pinned({2, 4, 6, 8, 10, 12}) << "" << "" << -1 << qint64(0);
    QTest::newRow("one group, a gap of 13") << pinned({1, 14, 15, 16, 17, 18}) << "" << "" << -1 << qint64(1);
    QTest::newRow("one group, a gap of 14") << pinned({1, 15, 16, 17, 18, 19}) << "" << "" << -1 << qint64(0);
    QTest::newRow("one group, sum 157") << pinned({21, 23, 25, 27, 29, 32}) << "" << "" << -1 << qint64(1);
    QTest::newRow("one group, sum 158") << pinned({21, 23, 25, 27, 30, 32}) << "" << "" << -1 << qint64(0);
    BallRanges twelveToTwenty;
    twelveToTwenty.BallMin.fill(12);
    twelveToTwenty.BallMax.fill(20);
    // Six of 12 to 20: 84 groups, none of them six even, all within the sums.
    QTest::newRow("nine reds, no rule") << twelveToTwenty << "" << "" << -1 << qint64(84);
    QTest::newRow("forbidden list leaves five reds") << twelveToTwenty << "12,14 16-18" << "" << -1 << qint64(0);
    QTest::newRow("forbidden list leaves six reds") << twelveToTwenty << "12 14 16" << "" << -1 << qint64(1);
    BallRanges full = fullRanges();
    full.max(6) = 32;
    QTest::newRow("bet number above every range") << full << "" << "33" << 1 << qint64(0);
    QTest::newRow("default ranges") << fullRanges() << "" << "" << -1 << qint64(858825);
}

void HistoryCheckTest::handCountedGroups()
{
    QFETCH(BallRanges, ranges);
    QFETCH(QString, forbidden);
    QFETCH(QString, bets);
    QFETCH(int, betMin);
    QFETCH(qint64, count);
    int eventRuns = 0;
    const qint64 found = historycheck::countRedGroups(conditionsOf(ranges, {forbidden, bets, betMin, betMin < 0 ? -1 : 0}),
                                                      [&eventRuns] { ++eventRuns; });
    QCOMPARE(found, count);
    // Pending events run after each first red that leaves five above it.
    QCOMPARE(eventRuns, 28);
}

void HistoryCheckTest::betNumbersOnLinesOfOtherForms_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("hits");
    // Five tokens: "1", "01", "a", "00" and "34".
    QTest::newRow("a line of reds") << "01 05 09 12 20 33" << 2;
    QTest::newRow("a 00 among the reds") << "00 05 09 12 20 33" << 2;
    QTest::newRow("a letter, either case") << "01 A5 09 12 20 33" << 3;
    QTest::newRow("a number behind the reds") << "01 05 09 12 20 33 34" << 3;
}

void HistoryCheckTest::betNumbersOnLinesOfOtherForms()
{
    QFETCH(QString, line);
    QFETCH(int, hits);
    QCOMPARE(betrule::BetNumbers(QStringLiteral(" 1  01 a 00 34 ")).hits(line), hits);
}

Q_DECLARE_METATYPE(Counts)

void HistoryCheckTest::pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory_data()
{
    QTest::addColumn<bool>("wantBlue");
    QTest::addColumn<bool>("noHistory");
    QTest::addColumn<QString>("forbidden");
    QTest::addColumn<Counts>("counts");
    // Six draws count: 001 (reds written out of order), 002 (six even reds,
    // never passes), 003, 004, the repeat 005 of 003 under the same blue and
    // 006 under another blue. The repeat is the first row, ahead of the draw
    // it repeats.
    QTest::newRow("no history test: all but six even") << false << false << "" << Counts{6, 5, 6, 5};
    // 003 is no repeat of 001's text, whose reds stand out of order, as the
    // run's test sees it; 005 and 006 repeat 003. 004 repeats the reds of the
    // row of 000, which counts as no draw but is history all the same, as it
    // is to a run.
    QTest::newRow("history test, reds") << false << true << "" << Counts{6, 2, 6, 2};
    QTest::newRow("history test, reds and blue") << true << true << "" << Counts{6, 4, 6, 4};
    QTest::newRow("a forbidden red") << true << false << "x30" << Counts{6, 1, 6, 1};
}

void HistoryCheckTest::pastDrawsInIssueOrderWithOnlyTheEarlierOnesAsHistory()
{
    QFETCH(bool, wantBlue);
    QFETCH(bool, noHistory);
    QFETCH(QString, forbidden);
    QFETCH(Counts, counts);
    DrawHistory history;
    addDraws(history, {{"2007005", "03 09 17 20 27 30 05 00"},
                       {"2007003", "03 09 17 20 27 30 05 00"},
                       {"2007001", "30 27 20 17 09 03 05 00"},
                       {"2007002", "02 04 06 08 10 12 01 00"},
                       {"2007006", "03 09 17 20 27 30 06 00"},
                       {"2007004", "01 05 09 12 20 33 05 00"},
                       {"2007007", "01 05 09 12 20"},          // too short
                       {"2007008", "01 05 09 12 20 34 07 00"}, // a red beyond 33
                       {"2007009", "01 05 09 12 20 20 07 00"}, // a red twice
                       {"2007010", "01 05 09 12 20 33 17 00"}, // a blue beyond 16
                       {"200701x", "01 05 09 12 20 33 07 00"}, // no issue number
                       {"2007000", "01 05 09 12 20 33 x7 00"}});
    ForecastConditions conditions = conditionsOf(fullRanges(), {forbidden, {}, 0, -1});
    conditions.wantBlue = wantBlue;
    conditions.noHistory = noHistory;
    // With a blue the line has it, two blanks before it, as a run writes it.
    QStringList offered;
    conditions.hooks.extraTest = [&offered](const QString& line) {
        offered.append(line);
        return true;
    };
    QCOMPARE(countsOf(historycheck::checkPastDraws(history, conditions)), counts);
    if (forbidden.isEmpty())
        QCOMPARE(offered.first(), wantBlue ? "03 09 17 20 27 30  05" : "03 09 17 20 27 30");
}

void HistoryCheckTest::newestHundredDraws()
{
    // 120 draws, every third one six even reds, in the rows newest first.
    DrawHistory history;
    for (int issue = 120; issue >= 1; --issue)
        addDraws(history, {{QString::number(issue), issue % 3 == 0 ? "02 04 06 08 10 12 01 00"
                                                                   : "01 05 09 12 20 33 07 00"}});
    ForecastConditions conditions = conditionsOf(fullRanges());
    QCOMPARE(countsOf(historycheck::checkPastDraws(history, conditions)), (Counts{120, 80, 100, 66}));
    // With the history test only the oldest of the repeats passes.
    conditions.noHistory = true;
    QCOMPARE(countsOf(historycheck::checkPastDraws(history, conditions)), (Counts{120, 1, 100, 0}));
    QCOMPARE(countsOf(historycheck::checkPastDraws(DrawHistory(), conditions)), (Counts{0, 0, 0, 0}));
}

void HistoryCheckTest::reportLines_data()
{
    QTest::addColumn<Counts>("counts");
    QTest::addColumn<qint64>("groups");
    QTest::addColumn<bool>("wantBlue");
    QTest::addColumn<QString>("report");
    const QString parts2 = QStringLiteral("满足条件的红球组合：858825组，占全部1107568组的77.54%");
    QTest::newRow("no draws: the groups alone") << Counts{0, 0, 0, 0} << qint64(858825) << false << parts2;
    QTest::newRow("with blue, about as often as any group")
        << Counts{2024, 1570, 100, 77} << qint64(858825) << true
        << "全部2024期开奖中有1570期满足当前条件（77.6%）\r\n"
           "最近100期开奖中有77期满足当前条件（77.0%）\r\n"
               + parts2
               + "\r\n含蓝球共13741200注\r\n条件效率：1.00\r\n"
                 "比值接近1：当前条件保留真实开奖号码与保留任意组合的比例相当。";
    QTest::newRow("favouring past draws, a short history")
        << Counts{3, 3, 3, 3} << qint64(553784) << false
        << "全部3期开奖中有3期满足当前条件（100.0%）\r\n最近3期开奖中有3期满足当前条件（100.0%）\r\n"
           "满足条件的红球组合：553784组，占全部1107568组的50.00%\r\n条件效率：2.00\r\n"
           "比值大于1：当前条件偏向历史开出过的号码，保留真实开奖的比例高于保留任意组合的比例。";
    QTest::newRow("throwing away past draws")
        << Counts{8, 0, 8, 0} << qint64(1) << false
        << "全部8期开奖中有0期满足当前条件（0.0%）\r\n最近8期开奖中有0期满足当前条件（0.0%）\r\n"
           "满足条件的红球组合：1组，占全部1107568组的0.00%\r\n条件效率：0.00\r\n"
           "比值小于1：当前条件去掉的真实开奖号码，比随机去掉的还多。";
    QTest::newRow("no group at all")
        << Counts{8, 0, 8, 0} << qint64(0) << true
        << "全部8期开奖中有0期满足当前条件（0.0%）\r\n最近8期开奖中有0期满足当前条件（0.0%）\r\n"
           "满足条件的红球组合：0组，占全部1107568组的0.00%\r\n含蓝球共0注\r\n条件效率：无法计算\r\n"
           "没有任何红球组合满足当前条件，请放宽条件。";
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
