#pragma once

// The checks and the group text of a single draw as the user types it: an
// issue number and the numbers, parted by blanks.

#include <QString>

#include <vector>

namespace drawentry {

enum class Check {
    Complete,
    Incomplete, // an issue number or numbers that are empty or blank
    NotNumeric, // either isn't a number; the numbers are tested with their blanks taken out
};

Check check(const QString& issue, const QString& numbers);

// The group text of the typed numbers: the first six ascending, in format
// "00", the rest as typed and in format "00". Each token is converted on its
// own and a token that isn't a whole number gives 0; the array has one spare
// 0 at the end, which sorts to the front when five numbers are typed, and is
// written last, unsorted, when fewer than five are. Not padded to eight.
QString groupText(const QString& numbers);

} // namespace drawentry

// The sort of the typed numbers: the same sort by text as 排序6个数字, failing
// in the same way for an array of fewer than six elements.
std::vector<qint32>& 排升序6个数字(std::vector<qint32>& numbers);
