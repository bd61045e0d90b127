#pragma once

// The one routine under every statistic: counts the values of one column of
// the history over all its rows and gives the chart table.

#include "statistics/charttable.h"

class DrawHistory;

// Builds the chart table of column K (0 the issue number, n sub-item n).
//
// First the history is sorted once by the text of column K, descending, and
// the rows stay in that order. The value of the first row is High and that of
// the last row Low: the ends of the text order, not a numeric maximum and
// minimum, so a one-digit cell such as "8" lies above "33". The table then
// has a row for every whole number from Low to High, holding the number of
// rows whose cell, read as a number, equals it.
//
// Cells that are not numbers never stop the count:
//  - at an end of the text order such a cell leaves High or Low at 0;
//  - in the count it matches every value, since a comparison that fails is
//    taken as a match, and each row of the table counts it once more;
//  - an empty history leaves High and Low at 0: one row labelled 0 into
//    which nothing is written.
// When High lies below Low the table has no rows at all, and so when the
// span from Low to High is wider than the 32,767 rows a chart can hold.
ColumnChart FillChartFromColumn(DrawHistory& history, int K);
