#include "history/drawhistory.h"
#include "statistics/perball.h"
#include "statistics/sevenball.h"

#include <QtTest>

#include <functional>

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
    QTest::newRow("a single draw") << 1 << QStringList{"12"} << QStringList{"12=1"};
    QTest::newRow("empty list: one row labelled 0, nothing written") << 1 << QStringList{} << QStringList{"0="};
    QTest::newRow("a blank cell sorts last, makes Low 0 and counts for every value")
        << 1 << QStringList{"05", "", "07", "06"}
        << QStringList{"0=1", "1=1", "2=1", "3=1", "4=1", "5=2", "6=2", "7=2"};
    QTest::newRow("a one-digit cell sorts above 33 and caps the rows")
        << 1 << QStringList{"33", "8", "05"} << QStringList{"5=1", "6=0", "7=0", "8=1"};
    QTest::newRow("a letter on top leaves High 0, below Low: no rows")
        << 1 << QStringList{"03", "x", "05"} << QStringList{};
    // The chart holds 32,767 rows; a wider span leaves it and its values empty.
    QStringList widest{"1=2"};
    for (int value = 2; value < 32767; ++value)
        widest << QString::number(value) + QStringLiteral("=0");
    QTest::newRow("32767 rows fit") << 1 << QStringList{"1", "32767", "1"} << (widest << "32767=1");
    QTest::newRow("32768 rows don't") << 1 << QStringList{"1", "32768"} << QStringList{};
    QTest::newRow("a mistyped 99999999") << 1 << QStringList{"05", "99999999", "12"} << QStringList{};
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

    const Statistic difference65 = [](DrawHistory& history) { return perball::differences(history, 4); };
    QTest::newRow("球6－球5 of 01 02 03 04 05 33")
        << difference65 << QStringList{"01 02 03 04 05 33 07 00"} << QStringList{"28"} << QStringList{"28=1"};
    QTest::newRow("a descending red gives a negative cell")
        << Statistic([](DrawHistory& history) { return perball::differences(history, 0); })
        << QStringList{"10 07 12 13 14 15 16 00", "01 03 05 07 09 11 13 00"} << QStringList{"02", "-03"}
        << QStringList{"-3=1", "-2=0", "-1=0", "0=0", "1=0", "2=1"};
    QTest::newRow("a draw without the pair stays blank and counts for every value")
        << difference65 << QStringList{"01 02 03 04 05 08 01 00", "01 02", "01 02 03 04 05 07 01 00"}
        << QStringList{"03", "02", ""} << QStringList{"0=1", "1=1", "2=2", "3=2"};
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

QTEST_GUILESS_MAIN(ChartStatisticsTest)
#include "tst_chartstatistics.moc"
