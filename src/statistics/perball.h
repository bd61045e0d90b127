#pragma once

// The statistics of single balls and of neighbouring reds over the whole
// history: how often each number occurs at one ball position, how far apart
// two neighbouring reds lie, and what their mean is. Ball n (1 to 6 the reds
// in ascending order, 7 the first blue, 8 the second blue) lies in sub-item
// n + 1. A pair index 0 to 4 names the reds i + 1 and i + 2, that is
// sub-items i + 2 and i + 3.
//
// The differences and means are written into the scratch column (sub-item
// 10) of every row and counted from there. Blanking that column again is the
// caller's part, once the chart has been shown.

#include "statistics/charttable.h"

class DrawHistory;

namespace perball {

constexpr int pairCount = 5;

// The frequency of one ball: the chart of its column, with the values for the
// ball panel. The history stays sorted by that ball, descending.
ColumnChart frequency(DrawHistory& history, int ball);

// Sub-item 10 of every row: the higher red of the pair minus the lower one,
// in format "00". A row whose two cells are not both numbers keeps its
// scratch cell as it was.
void writeDifferences(DrawHistory& history, int pair);

// Sub-item 10 of every row: the mean of the two reds of the pair in format
// "00", so that halves round away from zero ("04" for 3 and 4). A row whose
// two cells are not both numbers keeps its scratch cell as it was.
void writePairMeans(DrawHistory& history, int pair);

// Writes the scratch column and counts it.
ChartTable differences(DrawHistory& history, int pair);
ChartTable pairMeans(DrawHistory& history, int pair);

} // namespace perball
