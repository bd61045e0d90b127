#pragma once

// "滤掉重复": takes repeated lines out of a result box and sorts the rest. It
// works on the lines as text, with no knowledge of lottery numbers; the line
// layout is told by the mean line length, 17 for six reds and 21 for six reds,
// two blanks and the blue.

#include <QString>
#include <QStringList>

class MessageService;
class TextHolder;

// The mean trimmed length of the text's non-blank lines, in single precision:
// a few stray lines can thus pass in a long text. 0 when no line has text.
float AverageLineLength(const QString& text);

// One value for each distinct field of the lines, the field being the first
// `width` characters of a line; ascending by text, blank fields left out.
QStringList distinctFields(const QStringList& lines, int width);

// Replaces the text of the box by its distinct lines and reports the counts
// before and after; refuses a text that is no forecast result and leaves the
// box as it was. The text ends without a line break afterwards.
void FilterDuplicateLines(TextHolder& box, MessageService& messages);
