#pragma once

// The statistics of the seven main balls of a draw taken together, the six
// reds and the first blue: how many of them are even, and their mean. The
// second blue plays no part. Both are written into the scratch column
// (sub-item 10) of every row and counted from there; blanking that column
// again is the caller's part, once the chart has been shown.

#include "statistics/charttable.h"

class DrawHistory;

namespace sevenball {

// Sub-item 10 of every row: CountEvenNumbers of the row's number group, as
// plain decimal text ("3", not "03").
void writeEvenCounts(DrawHistory& history);

// Sub-item 10 of every row: the sum of the reds and the first blue (sub-items
// 2 to 8) divided by 7, in format "00". One cell that is not a number fails
// the row, whose scratch cell then stays as it was.
void writeMeans(DrawHistory& history);

// Writes the scratch column and counts it.
ChartTable evenCounts(DrawHistory& history);
ChartTable means(DrawHistory& history);

} // namespace sevenball
