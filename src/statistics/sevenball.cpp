#include "statistics/sevenball.h"

#include "forecast/grouptests.h"
#include "history/drawhistory.h"
#include "platform/textrules.h"
#include "statistics/fillchart.h"

#include <optional>

namespace sevenball {

namespace {

constexpr int firstRedSubItem = 2;
constexpr int firstBlueSubItem = 8;
constexpr int balls = 7;

} // namespace

void writeEvenCounts(DrawHistory& history)
{
    DrawHistory::Batch batch(history);
    for (int row = 0; row < history.count(); ++row)
        history.setSubItem(row, DrawHistory::ScratchSubItem,
                           textrules::decimal(CountEvenNumbers(history.subItem(row, DrawHistory::GroupSubItem))));
}

void writeMeans(DrawHistory& history)
{
    DrawHistory::Batch batch(history);
    for (int row = 0; row < history.count(); ++row) {
        qint64 sum = 0;
        bool allNumbers = true;
        for (int subItem = firstRedSubItem; subItem <= firstBlueSubItem && allNumbers; ++subItem) {
            if (const std::optional<qint32> value = textrules::toWhole(history.subItem(row, subItem)))
                sum += *value;
            else
                allNumbers = false; // the sum is one statement: one failed cell fails it all
        }
        if (allNumbers)
            history.setSubItem(row, DrawHistory::ScratchSubItem, textrules::format00(double(sum) / balls));
    }
}

ChartTable evenCounts(DrawHistory& history)
{
    writeEvenCounts(history);
    return FillChartFromColumn(history, DrawHistory::ScratchSubItem).table;
}

ChartTable means(DrawHistory& history)
{
    writeMeans(history);
    return FillChartFromColumn(history, DrawHistory::ScratchSubItem).table;
}

} // namespace sevenball
