#include "history/drawhistory.h"
#include "statistics/trendchart.h"
#include "statistics/trendmodel.h"
#include "statistics/trendpick.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <set>

// The trend chart's rules against a plain reading of them: the omissions,
// the repeats and the footer of random histories, computed here by walking
// back from each draw and by trying every run of draws; the indicators and
// the pick on rows worked out by hand.

namespace {

// A history as the test made it: the rows in list order, and the draws that
// count, in issue order.
struct Made {
    struct Draw {
        qint64 issue;
        std::set<int> reds;
        int blue;
    };
    std::vector<Draw> draws;
    int incompleteRows = 0;
    int badIssueRows = 0;
};

// What a random history holds: `draws` draws, in list order or shuffled,
// `bad` rows of each kind left out, and some numbers never drawn or always.
struct Recipe {
    quint32 seed;
    int draws;
    bool shuffled;
    int bad;
    std::set<int> neverRed, everyRed;
    int neverBlue = 0, everyBlue = 0;
};

Made fill(DrawHistory& history, const Recipe& recipe)
{
    QRandomGenerator random(recipe.seed);
    Made made;
    struct Row {
        QString issue, group;
    };
    std::vector<Row> rows;
    for (int i = 0; i < recipe.draws; ++i) {
        std::set<int> reds = recipe.everyRed;
        while (reds.size() < 6) {
            const int red = int(random.bounded(1, 34));
            if (!recipe.neverRed.count(red))
                reds.insert(red);
        }
        int blue = recipe.everyBlue;
        while (blue == 0 || blue == recipe.neverBlue)
            blue = int(random.bounded(1, 17));
        // Reds in any order, one digit now and then: the program's own
        // number conversion reads them.
        QStringList tokens;
        for (int red : reds)
            tokens << (random.bounded(4) == 0 ? QString::number(red) : QString::asprintf("%02d", red));
        std::shuffle(tokens.begin(), tokens.end(), random);
        tokens << QString::asprintf("%02d", blue) << QStringLiteral("00");
        // Issue numbers of one to four digits: as text, "1000" would sort before "21".
        const qint64 issue = 8 + qint64(i) * 13;
        rows.push_back({QString::number(issue), tokens.join(QLatin1Char(' '))});
        made.draws.push_back({issue, reds, blue});
    }
    const QStringList badGroups{"01 02 03 04 05 06", "01 01 03 04 05 06 07 00", "01 02 03 04 05 34 07 00",
                                "01 02 03 04 05 06 17 00", "00 02 03 04 05 06 07 00", "01 02 03 04 05 06  07 00",
                                "01 02 x3 04 05 06 07 00"};
    for (int i = 0; i < recipe.bad; ++i) {
        rows.push_back({QString::number(2090001 + i), badGroups[i % badGroups.size()]});
        rows.push_back({QStringLiteral("期%1").arg(i), QStringLiteral("01 02 03 04 05 06 07 00")});
    }
    made.incompleteRows = recipe.bad;
    made.badIssueRows = recipe.bad;
    if (recipe.shuffled)
        std::shuffle(rows.begin(), rows.end(), random);
    for (const Row& row : rows) {
        history.add(DrawHistory::keyOf(row.issue), row.issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, row.group);
    }
    return made;
}

// Number n of the 49 columns: reds 1 to 33, then blues 1 to 16.
bool holds(const Made::Draw& draw, int n)
{
    return n < 33 ? draw.reds.count(n + 1) > 0 : draw.blue == n - 33 + 1;
}

// Draws since the number last came, walking back from draw g; the first
// draw counts as one draw since the start.
int omissionOf(const Made& made, int g, int n)
{
    int since = 0;
    for (int j = g; j >= 0; --j) {
        if (holds(made.draws[size_t(j)], n))
            return since;
        ++since;
    }
    return since;
}

// The longest run of shown draws all with (or all without) the number, by
// trying every run.
int longestRun(const Made& made, int first, int count, int n, bool with)
{
    int longest = 0;
    for (int start = first; start < first + count; ++start) {
        for (int end = start; end < first + count; ++end) {
            bool all = true;
            for (int i = start; i <= end; ++i)
                all = all && holds(made.draws[size_t(i)], n) == with;
            if (all)
                longest = std::max(longest, end - start + 1);
        }
    }
    return longest;
}

} // namespace

Q_DECLARE_METATYPE(Recipe)

class TrendChartTest : public QObject {
    Q_OBJECT

private slots:
    void matchesPlainReading_data();
    void matchesPlainReading();
    void numberGroups_data();
    void numberGroups();
    void indicators_data();
    void indicators();
    void pick_data();
    void pick();
};

void TrendChartTest::matchesPlainReading_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::addColumn<int>("newest"); // 0 for all

    QTest::newRow("list in issue order, newest 30") << Recipe{1, 80, false, 0, {}, {}} << 30;
    QTest::newRow("list out of order, newest 50") << Recipe{2, 90, true, 0, {}, {}} << 50;
    QTest::newRow("reds 07 and 33, blue 16 never drawn") << Recipe{3, 70, true, 0, {7, 33}, {}, 16} << 50;
    QTest::newRow("red 12 and blue 03 in every draw") << Recipe{4, 60, true, 0, {}, {12}, 0, 3} << 30;
    QTest::newRow("rows left out among the draws") << Recipe{5, 75, true, 7, {}, {}} << 50;
    QTest::newRow("newest 500 of a shorter history") << Recipe{6, 45, true, 2, {1}, {}} << 500;
    QTest::newRow("all draws") << Recipe{7, 55, true, 1, {}, {}} << 0;
    QTest::newRow("one draw") << Recipe{8, 1, false, 0, {}, {}} << 100;
    QTest::newRow("empty history") << Recipe{9, 0, false, 0, {}, {}} << 100;
    QTest::newRow("nothing but rows left out") << Recipe{10, 0, true, 3, {}, {}} << 0;
}

void TrendChartTest::matchesPlainReading()
{
    QFETCH(Recipe, recipe);
    QFETCH(int, newest);
    DrawHistory history;
    const Made made = fill(history, recipe);
    const QStringList listOrder = [&] {
        QStringList issues;
        for (int row = 0; row < history.count(); ++row)
            issues << history.text(row);
        return issues;
    }();

    const trendchart::Chart chart = trendchart::build(history);
    QCOMPARE(chart.incompleteRows, made.incompleteRows);
    QCOMPARE(chart.badIssueRows, made.badIssueRows);
    QCOMPARE(int(chart.draws.size()), int(made.draws.size()));

    const int all = int(made.draws.size());
    const int count = newest > 0 ? std::min(newest, all) : all;
    const int first = all - count;
    QCOMPARE(trendchart::firstShown(chart, newest), first);
    TrendModel model(chart);
    model.setShown(first, count);
    QCOMPARE(model.rowCount(), count);

    for (int row = 0; row < count; ++row) {
        const int g = first + row;
        const Made::Draw& draw = made.draws[size_t(g)];
        QCOMPARE(model.index(row, trendcolumns::issue).data().toString(), QString::number(draw.issue));
        for (int n = 0; n < trendchart::numberCount; ++n) {
            const int column = trendcolumns::firstRed + n;
            const int number = n < 33 ? n + 1 : n - 32;
            const QString shown = holds(draw, n) ? QString::asprintf("%02d", number)
                                                 : QString::number(omissionOf(made, g, n));
            if (model.index(row, column).data().toString() != shown)
                QFAIL(qPrintable(QStringLiteral("draw %1, column %2: %3, not %4")
                                     .arg(draw.issue)
                                     .arg(column)
                                     .arg(model.index(row, column).data().toString(), shown)));
        }
        int repeats = 0;
        if (g > 0) {
            for (int red : draw.reds)
                repeats += int(made.draws[size_t(g - 1)].reds.count(red));
        }
        QCOMPARE(model.index(row, trendcolumns::firstIndicator + trendchart::Repeats).data().toString(),
                 QString::number(repeats));
    }

    TrendFooterModel footer;
    footer.setFooter(trendchart::footer(chart, first, count));
    for (int n = 0; n < trendchart::numberCount; ++n) {
        int drawn = 0;
        for (int i = first; i < first + count; ++i)
            drawn += holds(made.draws[size_t(i)], n) ? 1 : 0;
        const int expected[] = {drawn, (count - drawn) / (drawn + 1), longestRun(made, first, count, n, false),
                                longestRun(made, first, count, n, true)};
        for (int line = 0; line < trendchart::footerLineCount; ++line)
            QCOMPARE(footer.index(line, trendcolumns::firstRed + n).data().toString(),
                     QString::number(expected[line]));
    }

    // Without omissions an undrawn cell is empty; the list keeps its order.
    model.setShowOmission(false);
    for (int row = 0; row < count; ++row) {
        for (int n = 0; n < trendchart::numberCount; ++n) {
            if (!holds(made.draws[size_t(first + row)], n))
                QCOMPARE(model.index(row, trendcolumns::firstRed + n).data().toString(), QString());
        }
    }
    QStringList listAfter;
    for (int row = 0; row < history.count(); ++row)
        listAfter << history.text(row);
    QCOMPARE(listAfter, listOrder);
}

void TrendChartTest::numberGroups_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("read"); // reds ascending and the blue, or empty when left out

    QTest::newRow("eight tokens") << "08 09 17 25 27 32 06 15" << "08 09 17 25 27 32 06";
    QTest::newRow("seven tokens, blanks around") << " 08 09 17 25 27 32 06 " << "08 09 17 25 27 32 06";
    QTest::newRow("reds in any order, one digit") << "32 8 17 09 27 25 6" << "08 09 17 25 27 32 06";
    QTest::newRow("what follows the blue is not read") << "01 02 03 04 05 06 07 zz 99" << "01 02 03 04 05 06 07";
    QTest::newRow("a fraction is rounded, half to even") << "01 02 03 04 05 06 7.5" << "01 02 03 04 05 06 08";
    QTest::newRow("2.5 rounds to 2: a red twice") << "01 02 2.5 04 05 06 07" << "";
    QTest::newRow("a red of 64 characters") << QString(62, '0') + "01 02 03 04 05 06 07" << "01 02 03 04 05 06 07";
    QTest::newRow("one of 65 is taken for mistyped") << QString(63, '0') + "01 02 03 04 05 06 07" << "";
    QTest::newRow("no blue") << "01 02 03 04 05 06" << "";
    QTest::newRow("red 34") << "01 02 03 04 05 34 07" << "";
    QTest::newRow("red 00") << "00 02 03 04 05 06 07" << "";
    QTest::newRow("blue 17") << "01 02 03 04 05 06 17" << "";
    QTest::newRow("blue 00") << "01 02 03 04 05 06 00" << "";
    QTest::newRow("two blanks make an empty token") << "01 02 03 04 05 06  07" << "";
    QTest::newRow("a tab is no separator") << "01\t02 03 04 05 06 07 08" << "";
    QTest::newRow("not a number") << "01 02 03 04 05 0x 07" << "";
    QTest::newRow("empty") << "" << "";
}

void TrendChartTest::numberGroups()
{
    QFETCH(QString, group);
    QFETCH(QString, read);
    std::array<int, 6> reds{};
    int blue = 0;
    const bool parsed = trendchart::parseGroup(group, reds, blue);
    QCOMPARE(parsed, !read.isEmpty());
    if (parsed) {
        QStringList numbers;
        for (int red : reds)
            numbers << QString::asprintf("%02d", red);
        QCOMPARE(numbers.join(' ') + QString::asprintf(" %02d", blue), read);
    }
}

void TrendChartTest::indicators_data()
{
    QTest::addColumn<QString>("group");
    // 和值, 跨度, AC值, 奇偶比, 大小比, 三区比, 连号
    QTest::addColumn<QStringList>("values");

    QTest::newRow("three in a row and a pair") << "05 06 07 20 21 33 01"
                                               << QStringList{"92", "28", "5", "4:2", "3:3", "3:2:1", "3"};
    QTest::newRow("01 to 06: AC 0, all small") << "01 02 03 04 05 06 01"
                                               << QStringList{"21", "5", "0", "3:3", "0:6", "6:0:0", "5"};
    QTest::newRow("steps of six: AC 0, no neighbours")
        << "01 07 13 19 25 31 01" << QStringList{"96", "30", "0", "6:0", "3:3", "2:2:2", "0"};
    QTest::newRow("a gap of two makes no neighbours")
        << "02 04 06 08 09 30 01" << QStringList{"59", "28", "7", "1:5", "1:5", "5:0:1", "1"};
    QTest::newRow("zone and size edges 11|12, 16|17, 22|23")
        << "11 12 16 17 22 23 01" << QStringList{"101", "12", "3", "3:3", "3:3", "1:4:1", "3"};
    QTest::newRow("unsorted reds are sorted first")
        << "33 01 17 16 12 11 05" << QStringList{"90", "32", "7", "4:2", "2:4", "2:3:1", "2"};
}

void TrendChartTest::indicators()
{
    QFETCH(QString, group);
    QFETCH(QStringList, values);
    DrawHistory history;
    history.add(DrawHistory::keyOf("2020001"), "2020001");
    history.setSubItem(0, DrawHistory::GroupSubItem, group);
    const trendchart::Chart chart = trendchart::build(history);
    QCOMPARE(int(chart.draws.size()), 1);
    TrendModel model(chart);
    model.setShown(0, 1);
    QStringList shown;
    QStringList captions;
    for (int indicator = 0; indicator < trendchart::indicatorCount; ++indicator) {
        const int column = trendcolumns::firstIndicator + indicator;
        captions << model.headerData(column, Qt::Horizontal).toString();
        if (indicator != trendchart::Repeats)
            shown << model.index(0, column).data().toString();
    }
    QCOMPARE(shown, values);
    QCOMPARE(captions, (QStringList{"和值", "跨度", "AC值", "奇偶比", "大小比", "三区比", "重号", "连号"}));
    // The first draw of the history repeats nothing.
    QCOMPARE(model.index(0, trendcolumns::firstIndicator + trendchart::Repeats).data().toString(), QString("0"));
}

void TrendChartTest::pick_data()
{
    QTest::addColumn<QList<int>>("reds"); // each toggled in turn
    QTest::addColumn<QList<int>>("blues");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("bets");

    QTest::newRow("nothing") << QList<int>{} << QList<int>{} << "" << qint64(0);
    QTest::newRow("a single bet, clicked out of order")
        << QList<int>{33, 5, 1, 20, 12, 9} << QList<int>{8} << "01 05 09 12 20 33 + 08" << qint64(1);
    QTest::newRow("seven reds, two blues: 7 x 2")
        << QList<int>{1, 2, 3, 4, 5, 6, 7} << QList<int>{16, 1} << "01 02 03 04 05 06 07 + 01 16" << qint64(14);
    QTest::newRow("a second click drops the number")
        << QList<int>{1, 2, 3, 4, 5, 6, 7, 7} << QList<int>{2, 3, 3} << "01 02 03 04 05 06 + 02" << qint64(1);
    QTest::newRow("five reds make no bet") << QList<int>{1, 2, 3, 4, 5} << QList<int>{2} << "01 02 03 04 05 + 02"
                                           << qint64(0);
    QTest::newRow("reds without a blue") << QList<int>{1, 2, 3, 4, 5, 6} << QList<int>{} << "01 02 03 04 05 06"
                                         << qint64(0);
    QTest::newRow("a blue alone") << QList<int>{} << QList<int>{8} << "+ 08" << qint64(0);
    QList<int> allReds;
    for (int red = 1; red <= 33; ++red)
        allReds << red;
    QList<int> allBlues;
    for (int blue = 1; blue <= 16; ++blue)
        allBlues << blue;
    QTest::newRow("every number: C(33,6) x 16") << allReds << allBlues << QString() << qint64(1107568) * 16;
}

void TrendChartTest::pick()
{
    QFETCH(QList<int>, reds);
    QFETCH(QList<int>, blues);
    QFETCH(QString, text);
    QFETCH(qint64, bets);
    TrendPick pick;
    for (int red : reds)
        pick.toggleRed(red);
    for (int blue : blues)
        pick.toggleBlue(blue);
    if (!text.isEmpty() || reds.isEmpty())
        QCOMPARE(pick.text(), text);
    QCOMPARE(pick.bets(), bets);
    QCOMPARE(pick.cost(), 2 * bets);
    QCOMPARE(pick.isEmpty(), reds.isEmpty() && blues.isEmpty());
}

QTEST_GUILESS_MAIN(TrendChartTest)
#include "tst_trendchart.moc"
