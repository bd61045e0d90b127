#include "history/drawhistory.h"
#include "settings/ballranges.h"
#include "settings/settingsstore.h"
#include "statistics/ballpanel.h"
#include "statistics/perball.h"
#include "statistics/sevenball.h"

#include <QTemporaryDir>
#include <QtTest>

#include <functional>

// The charts' statistics, and what the panel of a ball's chart reads and
// saves; each case of the panel works on a settings store in a temporary
// folder, never the user's.

namespace {

// A history of these number groups, their tokens in sub-items 2 to 9 as far
// as the group has them.
void fillDraws(DrawHistory& history, const QStringList& groups)
{
    for (int row = 0; row < groups.size(); ++row) {
        const QString issue = QString::number(2010001 + row);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(row, DrawHistory::GroupSubItem, groups[row]);
        const QStringList tokens = groups[row].split(QLatin1Char(' '));
        for (int token = 0; token < tokens.size() && token < 8; ++token)
            history.setSubItem(row, 2 + token, tokens[token]);
    }
}

// "label=data" for each chart row, in order; checks that Row counts from 1.
QStringList rowsOf(const ChartTable& table)
{
    QStringList rows;
    for (size_t i = 0; i < table.rows.size(); ++i) {
        if (table.rows[i].Row != qint32(i + 1))
            rows << QStringLiteral("bad Row %1").arg(table.rows[i].Row);
        rows << table.rows[i].RowLabel + QLatin1Char('=') + table.rows[i].Data;
    }
    return rows;
}

// A statistic over the whole history, writing its scratch cells where it has them.
using Statistic = std::function<ChartTable(DrawHistory&)>;

} // namespace

Q_DECLARE_METATYPE(Statistic)

class ChartStatisticsTest : public QObject {
    Q_OBJECT

private slots:
    void frequency_data();
    void frequency();
    void derivedCharts_data();
    void derivedCharts();
    void panelLoadsSavedPositions_data();
    void panelLoadsSavedPositions();
    void panelConfirmSavesPositionsAndRange_data();
    void panelConfirmSavesPositionsAndRange();
};

void ChartStatisticsTest::frequency_data()
{
    QTest::addColumn<int>("ball");
    QTest::addColumn<QStringList>("groups"); // as far as they go: "01" holds ball 1 alone
    QTest::addColumn<QStringList>("rows");

    const QString noSecondBlue = QStringLiteral("01 02 03 04 05 06 07 00");
    QTest::newRow("first red 01, 03, 01") << 1 << QStringList{"01", "03", "01"} << QStringList{"1=2", "2=0", "3=1"};
    QTest::newRow("ball 8 with no second blue: all 00")
        << 8 << QStringList{noSecondBlue, noSecondBlue, noSecondBlue} << QStringList{"0=3"};
    QTest::newRow("empty list: one row labelled 0, nothing written") << 1 << QStringList{} << QStringList{"0="};
    QTest::newRow("a blank cell sorts last, makes Low 0 and counts for every value")
        << 1 << QStringList{"05", "", "07", "06"}
        << QStringList{"0=1", "1=1", "2=1", "3=1", "4=1", "5=2", "6=2", "7=2"};
    QTest::newRow("a one-digit cell sorts above 33 and caps the rows")
        << 1 << QStringList{"33", "8", "05"} << QStringList{"5=1", "6=0", "7=0", "8=1"};
    QTest::newRow("a fraction rounds for High but matches no value")
        << 1 << QStringList{"05", "5.5", "03"} << QStringList{"3=1", "4=0", "5=1", "6=0"};
    QTest::newRow("a letter on top leaves High 0, below Low: no rows")
        << 1 << QStringList{"03", "x", "05"} << QStringList{};
    // The chart holds 32,767 rows; a wider span, such as that of a mistyped
    // 99999999, leaves it and its values empty.
    QStringList widest{"1=2"};
    for (int value = 2; value < 32767; ++value)
        widest << QString::number(value) + QStringLiteral("=0");
    QTest::newRow("32767 rows fit") << 1 << QStringList{"1", "32767", "1"} << (widest << "32767=1");
    QTest::newRow("32768 rows don't") << 1 << QStringList{"1", "32768"} << QStringList{};
}

void ChartStatisticsTest::frequency()
{
    QFETCH(int, ball);
    QFETCH(QStringList, groups);
    QFETCH(QStringList, rows);
    DrawHistory history;
    fillDraws(history, groups);
    const ColumnChart chart = perball::frequency(history, ball);
    QCOMPARE(rowsOf(chart.table), rows);
    // The panel offers exactly the values charted.
    QStringList labels;
    for (const QString& row : rows)
        labels << row.section(QLatin1Char('='), 0, 0);
    QCOMPARE(chart.values, labels);
}

void ChartStatisticsTest::derivedCharts_data()
{
    QTest::addColumn<Statistic>("statistic");
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("scratch"); // sub-item 10 afterwards, the rows sorted by it
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("a descending red gives a negative cell")
        << Statistic([](DrawHistory& history) { return perball::differences(history, 0); })
        << QStringList{"10 07 12 13 14 15 16 00", "01 03 05 07 09 11 13 00"} << QStringList{"02", "-03"}
        << QStringList{"-3=1", "-2=0", "-1=0", "0=0", "1=0", "2=1"};
    QTest::newRow("球6－球5: a draw without the pair stays blank and counts for every value")
        << Statistic([](DrawHistory& history) { return perball::differences(history, 4); })
        << QStringList{"01 02 03 04 05 08 01 00", "01 02", "01 02 03 04 05 07 01 00"} << QStringList{"03", "02", ""}
        << QStringList{"0=1", "1=1", "2=2", "3=2"};
    QTest::newRow("mean of two: halves away from zero")
        << Statistic([](DrawHistory& history) { return perball::pairMeans(history, 0); })
        << QStringList{"03 04 05 06 07 08 09 00", "08 09 10 11 12 13 14 00", "10 12 13 14 15 16 01 00"}
        << QStringList{"11", "09", "04"}
        << QStringList{"4=1", "5=0", "6=0", "7=0", "8=0", "9=1", "10=0", "11=1"};
    QTest::newRow("mean of seven: reds and first blue, not the second blue")
        << Statistic(sevenball::means) << QStringList{"08 09 17 25 27 32 06 15"} << QStringList{"18"}
        << QStringList{"18=1"};
    QTest::newRow("mean of seven without the first blue stays blank")
        << Statistic(sevenball::means) << QStringList{"01 02 03 04 05 06"} << QStringList{""} << QStringList{"0=1"};
    QTest::newRow("even counts 1, 1, 4, plain decimal, second blue unseen")
        << Statistic(sevenball::evenCounts)
        << QStringList{"01 03 05 07 09 11 02 00", "02 03 05 07 09 11 13 00", "02 04 06 08 09 11 13 00"}
        << QStringList{"4", "1", "1"} << QStringList{"1=2", "2=0", "3=0", "4=1"};
}

void ChartStatisticsTest::derivedCharts()
{
    QFETCH(Statistic, statistic);
    QFETCH(QStringList, groups);
    QFETCH(QStringList, scratch);
    QFETCH(QStringList, rows);
    DrawHistory history;
    fillDraws(history, groups);
    QCOMPARE(rowsOf(statistic(history)), rows);
    QStringList cells;
    for (int row = 0; row < history.count(); ++row)
        cells << history.subItem(row, DrawHistory::ScratchSubItem);
    QCOMPARE(cells, scratch);
}

void ChartStatisticsTest::panelLoadsSavedPositions_data()
{
    // The lists hold 5 and 6 entries, put at 1 and 2 by the caller. A null
    // text is a key never saved.
    QTest::addColumn<QString>("storedMin");
    QTest::addColumn<QString>("storedMax");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<int>("maxIndex");

    QTest::newRow("nothing saved: first and last") << QString() << QString() << 0 << 5;
    QTest::newRow("saved positions") << "2" << "3" << 2 << 3;
    QTest::newRow("not numeric: first and last") << "abc" << "" << 0 << 5;
    QTest::newRow("past the end or below -1: stays") << "5" << "-2" << 1 << 2;
    QTest::newRow("the last entry and -1 (no entry) are positions") << "4" << "-1" << 4 << -1;
}

void ChartStatisticsTest::panelLoadsSavedPositions()
{
    QFETCH(QString, storedMin);
    QFETCH(QString, storedMax);
    QFETCH(int, minIndex);
    QFETCH(int, maxIndex);
    QTemporaryDir folder;
    IniSettingsStore store(folder.path(), QStringLiteral("ballpanel-test"));
    if (!storedMin.isNull())
        store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MIN"), storedMin);
    if (!storedMax.isNull())
        store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MAX"), storedMax);
    const ballpanel::ListPositions positions =
        ballpanel::loadPositions(store, QStringLiteral("3"), 5, 6, ballpanel::ListPositions{1, 2});
    QCOMPARE(positions.minIndex, minIndex);
    QCOMPARE(positions.maxIndex, maxIndex);
}

void ChartStatisticsTest::panelConfirmSavesPositionsAndRange_data()
{
    QTest::addColumn<QString>("ball");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<QString>("minText");
    QTest::addColumn<int>("maxIndex");
    QTest::addColumn<QString>("maxText");
    QTest::addColumn<QList<int>>("range"); // the ball's range afterwards; balls 7 and 8 have none

    QTest::newRow("ball 2") << "2" << 1 << "4" << 20 << "23" << QList<int>{4, 23};
    QTest::newRow("a reversed pair is taken as it stands") << "1" << 9 << "12" << 2 << "5" << QList<int>{12, 5};
    QTest::newRow("ball 6 of an empty history: 0 to 0") << "6" << 0 << "0" << 0 << "0" << QList<int>{0, 0};
    QTest::newRow("no entry selected leaves the range") << "3" << -1 << "" << -1 << "" << QList<int>{1, 33};
    QTest::newRow("ball 7 writes positions, no range") << "7" << 1 << "2" << 10 << "12" << QList<int>{};
}

void ChartStatisticsTest::panelConfirmSavesPositionsAndRange()
{
    QFETCH(QString, ball);
    QFETCH(int, minIndex);
    QFETCH(QString, minText);
    QFETCH(int, maxIndex);
    QFETCH(QString, maxText);
    QFETCH(QList<int>, range);
    QTemporaryDir folder;
    IniSettingsStore store(folder.path(), QStringLiteral("ballpanel-test"));
    BallRanges ranges;
    ranges.BallMin.fill(1);
    ranges.BallMax.fill(33);
    BallRanges expected = ranges;
    ballpanel::confirm(store, ranges, ball, minIndex, minText, maxIndex, maxText);

    QCOMPARE(store.read("设置I", "球" + ball + "取值MIN", "none"), QString::number(minIndex));
    QCOMPARE(store.read("设置I", "球" + ball + "取值MAX", "none"), QString::number(maxIndex));
    if (!range.isEmpty()) {
        expected.min(ball.toInt()) = range[0];
        expected.max(ball.toInt()) = range[1];
    }
    QCOMPARE(ranges.BallMin, expected.BallMin);
    QCOMPARE(ranges.BallMax, expected.BallMax);
    // The ranges reach "设置M" only at exit.
    QCOMPARE(store.read("设置M", "球" + ball + "取值MIN", "none"), QStringLiteral("none"));
}

QTEST_GUILESS_MAIN(ChartStatisticsTest)
#include "tst_chartstatistics.moc"
