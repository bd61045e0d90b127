#pragma once

// Two measures of a number group text that the forecast tests candidates by
// and the seven-ball statistics count over the history.

#include <QString>
#include <QStringView>

// Counts the even numbers among the seven token positions 0 to 6 of the
// trimmed text split at every single blank. A missing token, or one that is
// not a whole number, counts as even. On a result line position 6 is the
// empty token before the blue (or missing), so it always counts; on history
// text it is the first blue.
qint32 CountEvenNumbers(QStringView group);

// The sum of the whole-number values of token positions 0 to 6 of the text
// split at every single blank (not trimmed first), divided by 7 and rounded
// to the nearest whole number, halves to even. A missing or unreadable token
// adds nothing; the divisor stays 7.
qint32 AverageOfSeven(QStringView group);
