#include "history/drawhistory.h"
#include "statistics/fillchart.h"
#include "statistics/perball.h"
#include "statistics/sevenball.h"

#include <QtTest>

namespace {

// A history whose rows have these cells in one column and nothing else.
void fillColumn(DrawHistory& history, int column, const QStringList& cells)
{
    for (int row = 0; row < cells.size(); ++row) {
        const QString issue = QString::number(2010001 + row);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(row, column, cells[row]);
    }
}

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

QStringList scratchColumn(const DrawHistory& history)
{
    QStringList cells;
    for (int row = 0; row < history.count(); ++row)
        cells << history.subItem(row, DrawHistory::ScratchSubItem);
    return cells;
}

QStringList issues(const DrawHistory& history)
{
    QStringList texts;
    for (int row = 0; row < history.count(); ++row)
        texts << history.text(row);
    return texts;
}

} // namespace

class ChartStatisticsTest : public QObject {
    Q_OBJECT

private slots:
    void fillChartFromColumn_data();
    void fillChartFromColumn();
    void listStaysSortedByTheColumn();
    void frequencyGivesTheValuesForThePanel();
    void frequencyOfTheSecondBlue_data();
    void frequencyOfTheSecondBlue();
    void scratchCells_data();
    void scratchCells();
    void derivedCharts_data();
    void derivedCharts();
};

void ChartStatisticsTest::fillChartFromColumn_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("first red 01, 01, 03") << QStringList{"01", "03", "01"} << QStringList{"1=2", "2=0", "3=1"};
    QTest::newRow("every cell 00") << QStringList{"00", "00", "00", "00"} << QStringList{"0=4"};
    QTest::newRow("a single draw") << QStringList{"12"} << QStringList{"12=1"};
    QTest::newRow("empty list: one row labelled 0, nothing written") << QStringList{} << QStringList{"0="};
    QTest::newRow("a blank cell sorts last, makes Low 0 and counts everywhere")
        << QStringList{"05", "", "07", "06"}
        << QStringList{"0=1", "1=1", "2=1", "3=1", "4=1", "5=2", "6=2", "7=2"};
    QTest::newRow("a one-digit cell sorts above 33 and caps the rows")
        << QStringList{"33", "8", "05"} << QStringList{"5=1", "6=0", "7=0", "8=1"};
    QTest::newRow("a negative cell at the end of the text order")
        << QStringList{"02", "-03", "05"}
        << QStringList{"-3=1", "-2=0", "-1=0", "0=0", "1=0", "2=1", "3=0", "4=0", "5=1"};
    QTest::newRow("text order puts -01 last: -03 lies outside the rows")
        << QStringList{"-03", "04", "-01"} << QStringList{"-1=1", "0=0", "1=0", "2=0", "3=0", "4=1"};
    QTest::newRow("an end is read as a whole number, halves to even")
        << QStringList{"2", "2.5"} << QStringList{"2=1"};
    QTest::newRow("an end above the other in text, below it in number: no rows")
        << QStringList{"100", "99"} << QStringList{};
    QTest::newRow("a letter on top leaves High at 0, below Low: no rows")
        << QStringList{"03", "x", "05"} << QStringList{};
    QTest::newRow("cells compare as numbers: 3.0 and 03 both count for 3")
        << QStringList{"03", "3.0", "02"} << QStringList{"2=1", "3=2"};
}

void ChartStatisticsTest::fillChartFromColumn()
{
    QFETCH(QStringList, cells);
    QFETCH(QStringList, rows);
    DrawHistory history;
    fillColumn(history, 2, cells);
    const ColumnChart chart = FillChartFromColumn(history, 2);
    QCOMPARE(rowsOf(chart.table), rows);
    QCOMPARE(chart.table.RowCount(), qint32(rows.size()));
}

void ChartStatisticsTest::listStaysSortedByTheColumn()
{
    DrawHistory history;
    fillColumn(history, 3, {"07", "12", "", "09", "12"});
    FillChartFromColumn(history, 3);
    // Descending by text, equal cells in their old order, the blank last.
    QCOMPARE(issues(history), (QStringList{"2010002", "2010005", "2010004", "2010001", "2010003"}));
    QCOMPARE(history.SortKey(), 3);
    QCOMPARE(history.SortOrder(), 1);
    QVERIFY(!history.Sorted());
}

void ChartStatisticsTest::frequencyGivesTheValuesForThePanel()
{
    DrawHistory history;
    fillDraws(history, {"03 09 17 25 27 32 06 00", "05 11 12 13 14 15 16 00"});
    const ColumnChart chart = perball::frequency(history, 1);
    QCOMPARE(chart.values, (QStringList{"3", "4", "5"}));
    QCOMPARE(rowsOf(chart.table), (QStringList{"3=1", "4=0", "5=1"}));
    QCOMPARE(history.SortKey(), 2); // ball 1 lies in sub-item 2

    DrawHistory empty;
    QCOMPARE(perball::frequency(empty, 4).values, QStringList{"0"});
}

void ChartStatisticsTest::frequencyOfTheSecondBlue_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("no draw has a second blue")
        << QStringList{"01 02 03 04 05 06 07 00", "08 09 17 25 27 32 06 00", "02 03 04 05 06 07 08 00"}
        << QStringList{"0=3"};
    QTest::newRow("some draws have one")
        << QStringList{"01 02 03 04 05 06 07 00", "08 09 17 25 27 32 06 03", "02 03 04 05 06 07 08 00"}
        << QStringList{"0=2", "1=0", "2=0", "3=1"};
}

void ChartStatisticsTest::frequencyOfTheSecondBlue()
{
    QFETCH(QStringList, groups);
    QFETCH(QStringList, rows);
    DrawHistory history;
    fillDraws(history, groups);
    QCOMPARE(rowsOf(perball::frequency(history, 8).table), rows);
}

void ChartStatisticsTest::scratchCells_data()
{
    QTest::addColumn<QString>("statistic");
    QTest::addColumn<int>("pair");
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("cells");

    QTest::newRow("difference of 球6 and 球5")
        << "difference" << 4 << QStringList{"01 02 03 04 05 33 07 00", "01 02 03 04 30 31 07 00"}
        << QStringList{"28", "01"};
    QTest::newRow("difference of reds out of order is negative")
        << "difference" << 0 << QStringList{"10 07 12 13 14 15 16 00"} << QStringList{"-03"};
    QTest::newRow("difference with a missing cell stays blank")
        << "difference" << 4 << QStringList{"01 02 03 04 05", "01 02 03 04 05 09 01 00"} << QStringList{"", "04"};
    QTest::newRow("mean of two: halves away from zero")
        << "pair mean" << 0 << QStringList{"03 04 05 06 07 08 09 00", "08 09 10 11 12 13 14 00", "10 12 13 14 15 16 01 00"}
        << QStringList{"04", "09", "11"};
    QTest::newRow("mean of two with a letter stays blank")
        << "pair mean" << 1 << QStringList{"01 xx 03 04 05 06 07 00"} << QStringList{""};
    QTest::newRow("mean of seven: reds and first blue, not the second blue")
        << "seven mean" << 0 << QStringList{"08 09 17 25 27 32 06 15", "08 09 17 25 27 32 06 00"}
        << QStringList{"18", "18"};
    QTest::newRow("mean of seven with the first blue missing stays blank")
        << "seven mean" << 0 << QStringList{"01 02 03 04 05 06"} << QStringList{""};
    QTest::newRow("even count: plain decimal, second blue unseen")
        << "even count" << 0 << QStringList{"08 09 17 25 27 32 06 16", "01 03 05 07 09 11 13 02"}
        << QStringList{"3", "0"};
    QTest::newRow("even count of six tokens counts the missing seventh")
        << "even count" << 0 << QStringList{"02 04 06 07 09 11"} << QStringList{"4"};
}

void ChartStatisticsTest::scratchCells()
{
    QFETCH(QString, statistic);
    QFETCH(int, pair);
    QFETCH(QStringList, groups);
    QFETCH(QStringList, cells);
    DrawHistory history;
    fillDraws(history, groups);
    if (statistic == "difference")
        perball::writeDifferences(history, pair);
    else if (statistic == "pair mean")
        perball::writePairMeans(history, pair);
    else if (statistic == "seven mean")
        sevenball::writeMeans(history);
    else
        sevenball::writeEvenCounts(history);
    QCOMPARE(scratchColumn(history), cells);
}

void ChartStatisticsTest::derivedCharts_data()
{
    QTest::addColumn<QString>("statistic");
    QTest::addColumn<int>("pair");
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("even counts 1, 1, 4")
        << "even count" << 0
        << QStringList{"01 03 05 07 09 11 02 00", "02 03 05 07 09 11 13 00", "02 04 06 08 09 11 13 00"}
        << QStringList{"1=2", "2=0", "3=0", "4=1"};
    QTest::newRow("every draw with three even numbers")
        << "even count" << 0 << QStringList{"08 09 17 25 27 32 06 15", "02 04 05 07 09 11 16 00"}
        << QStringList{"3=2"};
    QTest::newRow("means of two counted after rounding")
        << "pair mean" << 0 << QStringList{"03 04 05 06 07 08 09 00", "08 09 10 11 12 13 14 00", "10 12 13 14 15 16 01 00"}
        << QStringList{"4=1", "5=0", "6=0", "7=0", "8=0", "9=1", "10=0", "11=1"};
    QTest::newRow("a draw that fails the difference counts for every value")
        << "difference" << 4 << QStringList{"01 02 03 04 05 08 01 00", "01 02", "01 02 03 04 05 07 01 00"}
        << QStringList{"0=1", "1=1", "2=2", "3=2"};
    QTest::newRow("mean of seven of one draw") << "seven mean" << 0 << QStringList{"08 09 17 25 27 32 06 15"}
                                               << QStringList{"18=1"};
    QTest::newRow("empty history") << "seven mean" << 0 << QStringList{} << QStringList{"0="};
}

void ChartStatisticsTest::derivedCharts()
{
    QFETCH(QString, statistic);
    QFETCH(int, pair);
    QFETCH(QStringList, groups);
    QFETCH(QStringList, rows);
    DrawHistory history;
    fillDraws(history, groups);
    ChartTable table;
    if (statistic == "difference")
        table = perball::differences(history, pair);
    else if (statistic == "pair mean")
        table = perball::pairMeans(history, pair);
    else if (statistic == "seven mean")
        table = sevenball::means(history);
    else
        table = sevenball::evenCounts(history);
    QCOMPARE(rowsOf(table), rows);
    QCOMPARE(history.SortKey(), int(DrawHistory::ScratchSubItem));
}

QTEST_GUILESS_MAIN(ChartStatisticsTest)
#include "tst_chartstatistics.moc"
