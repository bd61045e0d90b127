#pragma once

// The number columns of the history: sub-items 2 to 9 hold the eight tokens of
// a row's number group, and sub-item 10 is the statistics' scratch cell.

#include <QtGlobal>

#include <vector>

class DrawHistory;

namespace numbercolumns {

// The number column pass: for every row from the first, splits sub-item 1 at
// every single blank and writes tokens 1 to 8 into sub-items 2 to 9. A row
// with fewer than eight tokens stops the pass with
// RuntimeError(SubscriptOutOfRange), its cells filled up to the missing token
// and the rows behind it not reached. Whether that ends the program is the
// caller's affair.
void split(DrawHistory& history);

// Blanks sub-item 10 of every row.
void clearScratch(DrawHistory& history);

} // namespace numbercolumns

// Sorts elements 0 to 5 of the numbers in place by their text in format "00",
// as a sorted list box would: two-digit numbers come out in number order,
// "100" before "11", and duplicates stay. An array of fewer than six elements
// throws RuntimeError(SubscriptOutOfRange) and stays as it was.
std::vector<qint32>& 排序6个数字(std::vector<qint32>& numbers);
