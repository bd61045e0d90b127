#include "statistics/perball.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"
#include "statistics/fillchart.h"

#include <optional>

namespace perball {

namespace {

int lowerSubItem(int pair)
{
    return pair + 2;
}

int higherSubItem(int pair)
{
    return pair + 3;
}

// Writes into the scratch cell of every row what `value` makes of the pair's
// two reds.
template <class Value>
void writeScratch(DrawHistory& history, int pair, Value value)
{
    DrawHistory::Batch batch(history);
    for (int row = 0; row < history.count(); ++row) {
        const std::optional<qint32> higher = textrules::toWhole(history.subItem(row, higherSubItem(pair)));
        const std::optional<qint32> lower = textrules::toWhole(history.subItem(row, lowerSubItem(pair)));
        // Either conversion failing fails the whole statement: the cell stays blank.
        if (higher && lower)
            history.setSubItem(row, DrawHistory::ScratchSubItem, value(*higher, *lower));
    }
}

} // namespace

ColumnChart frequency(DrawHistory& history, int ball)
{
    return FillChartFromColumn(history, ball + 1);
}

void writeDifferences(DrawHistory& history, int pair)
{
    writeScratch(history, pair, [](qint32 higher, qint32 lower) {
        return textrules::format00(double(qint64(higher) - qint64(lower)));
    });
}

void writePairMeans(DrawHistory& history, int pair)
{
    writeScratch(history, pair, [](qint32 higher, qint32 lower) {
        return textrules::format00((double(higher) + double(lower)) / 2.0);
    });
}

ChartTable differences(DrawHistory& history, int pair)
{
    writeDifferences(history, pair);
    return FillChartFromColumn(history, DrawHistory::ScratchSubItem).table;
}

ChartTable pairMeans(DrawHistory& history, int pair)
{
    writePairMeans(history, pair);
    return FillChartFromColumn(history, DrawHistory::ScratchSubItem).table;
}

} // namespace perball
