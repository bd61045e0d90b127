#pragma once

// The remainder-by-3 filter: a group survives when each of its six numbers,
// position by position, has the same remainder by 3 as the newest draw's red
// at that position. The test looks a number up as text in the list of all
// reds with the wanted remainder, so it is a substring test: "3" is found in
// "03", and an empty token is found anywhere.

#include <QString>
#include <QStringList>

class DrawHistory;

class RemainderFilter {
public:
    // Sorts the history once by issue number, descending, so that the newest
    // draw stands first (the rows stay so), and gives its six reds as they
    // are shown: the first 18 characters of its number group, trimmed. An
    // empty history throws RuntimeError(IndexOutOfBounds).
    static QString newestReds(DrawHistory& history);

    // The remainders by 3 of the numbers in `reds`, one blank between them:
    // "2 0 2 1 0 2" for "08 09 17 25 27 32". A number that isn't numeric
    // throws RuntimeError(TypeMismatch), one beyond 32 bits Overflow.
    static QString remaindersOf(const QString& reds);

    // Takes LastRemainders from the remainders' text and makes the three lists.
    explicit RemainderFilter(const QString& remainders = QString());

    // Whether one line passes. A line is tested only as far as LastRemainders
    // reaches: a position behind its end throws RuntimeError(SubscriptOutOfRange).
    bool 号码是否合格(const QString& group) const;

    // The lines of `groups` that pass, trimmed, in their order, each ended by
    // CR LF.
    QString filterLines(const QString& groups) const;

    QStringList LastRemainders;
    QString RemainderList0; // "03 06 09 12 15 18 21 24 27 30 33"
    QString RemainderList1; // "01 04 07 10 13 16 19 22 25 28 31"
    QString RemainderList2; // "02 05 08 11 14 17 20 23 26 29 32"

private:
    const QString* listFor(const QString& remainder) const;
};
