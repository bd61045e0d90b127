#pragma once

// Which red numbers did not come up in the latest draws: the statistic of its
// own window, and what the bet forecast offers as bet numbers.

#include <QString>

class DrawHistory;

namespace undrawnreds {

// Sorts the list once by issue number, descending, so that the newest draw
// stands first; the list stays in that order. Then the first 18 characters
// of the group texts of the first `draws` rows are joined, and each of their
// tokens is taken out of "01 02 ... 33 " as text. What is left comes back in
// ascending order, one blank between the numbers. A row past the end of the
// list throws RuntimeError(IndexOutOfBounds), the list having been sorted.
QString 最近未出现号码(DrawHistory& history, int draws);

} // namespace undrawnreds
