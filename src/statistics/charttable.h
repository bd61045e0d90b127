#pragma once

// The table that a statistic hands to the chart window: one series, one row
// for each whole number from the lowest to the highest value of the column
// counted, in ascending order. It is a plain value: the statistics build it,
// the chart window draws it and nothing else.

#include <QString>
#include <QStringList>

#include <vector>

struct ChartRow {
    qint32 Row = 0;   // 1 for the lowest value, one more for each following value
    QString RowLabel; // the value as plain decimal text: "8", not "08"
    // The number of draws counted for the value, as decimal text. Empty when
    // no draw was visited for the row (an empty history): nothing was written.
    QString Data;

    friend bool operator==(const ChartRow&, const ChartRow&) = default;
};

struct ChartTable {
    std::vector<ChartRow> rows;

    qint32 RowCount() const { return qint32(rows.size()); }

    friend bool operator==(const ChartTable&, const ChartTable&) = default;
};

// What FillChartFromColumn leaves behind: the table, and the decimal text of
// each value it passed over, in order. The frequency statistic offers those
// values in the lists of the chart window's ball panel.
struct ColumnChart {
    ChartTable table;
    QStringList values;
};
