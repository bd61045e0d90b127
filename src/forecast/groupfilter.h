#pragma once

// The number-group filter: every line of the second list, trimmed, is taken
// out of the whole first text as a substring, in the order of the list,
// regardless of case, so that earlier removals change what later lines find;
// then the remaining lines are trimmed, the empty ones dropped, and each ends
// in CR LF. The lines of both lists are counted as one running count, and
// after every 100th line the caller's `letEventsRun` lets pending window
// events through.
//
// Done literally, that costs (lines taken out) × (length of the first text).
// `filterGroups` gives the same text, character for character, in time close
// to linear in the input, whatever its shape: one line of megabytes, lines
// to take out of megabytes, characters beyond the basic plane and lone
// halves of surrogate pairs, thousands of different characters, line ends
// in a line to take out. `filterGroupsSequentially` is the literal way.
// `filterGroups` doesn't go through the lines to take out one by one: the
// count of those lines advances with its progress through the first text.
// It also lets events run after every so much work (some 65,000 steps, or
// 30 ms of the processor's time, whichever comes first), outside the count,
// so that the window keeps answering throughout; on short texts, events run
// just as the count says.

#include <QString>

#include <functional>

namespace groupfilter {

using LetEventsRun = std::function<void()>;

QString filterGroups(const QString& kept, const QString& takenOut, const LetEventsRun& letEventsRun);

QString filterGroupsSequentially(const QString& kept, const QString& takenOut, const LetEventsRun& letEventsRun);

} // namespace groupfilter
