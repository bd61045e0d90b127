#include "statistics/fillchart.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

#include <cmath>
#include <optional>

namespace {

constexpr int descending = 1;

// The chart holds at most 32,767 rows, its row count being a 16-bit value. A
// wider span, such as that of a mistyped cell of "99999999", fails the
// statement that sets the row count; the routine passes over it, and the
// chart and the lists of values stay empty. Such a span is never walked.
constexpr qint64 maxChartRows = 32767;

} // namespace

ColumnChart FillChartFromColumn(DrawHistory& history, int K)
{
    // The rows keep this order afterwards; nothing sorts them back.
    history.sortOnce(K, descending);

    const int rowsInList = history.count();
    qint32 High = 0;
    qint32 Low = 0;
    if (rowsInList > 0) {
        // A cell that isn't a number leaves High at 0.
        if (const std::optional<qint32> value = textrules::toWhole(history.cell(0, K)))
            High = *value;
        // A cell that isn't a number leaves Low at 0.
        if (const std::optional<qint32> value = textrules::toWhole(history.cell(rowsInList - 1, K)))
            Low = *value;
    }
    // With no rows both reads fail and High and Low stay 0.

    ColumnChart result;
    const qint64 rowCount = qint64(High) - qint64(Low) + 1;
    if (rowCount < 1)
        return result; // no row count can be set and no value lies between the ends
    if (rowCount > maxChartRows)
        return result; // setting the row count fails: the chart and the value lists stay empty

    // Each cell is read once. Cells that are whole numbers between Low and
    // High go to their value's count; other numbers match no value; a cell
    // that is not a number matches every value, so it is counted once for all.
    std::vector<qint64> matches(size_t(rowCount), 0);
    qint64 notNumbers = 0;
    for (int row = 0; row < rowsInList; ++row) {
        const std::optional<double> value = textrules::toNumber(history.cell(row, K));
        if (!value) {
            ++notNumbers; // the comparison fails, which counts as equal
            continue;
        }
        if (*value < double(Low) || *value > double(High) || std::floor(*value) != *value)
            continue;
        ++matches[size_t(qint64(*value) - Low)];
    }

    result.table.rows.reserve(size_t(rowCount));
    result.values.reserve(qsizetype(rowCount));
    qint32 chartRow = 0;
    for (qint64 v = Low; v <= High; ++v) {
        ++chartRow;
        ChartRow row;
        row.Row = chartRow;
        row.RowLabel = textrules::decimal(v);
        // The count is written after each visited list row: with no list rows
        // nothing is written.
        if (rowsInList > 0)
            row.Data = textrules::decimal(matches[size_t(v - Low)] + notNumbers);
        result.table.rows.push_back(std::move(row));
        result.values.append(textrules::decimal(v));
    }
    return result;
}
