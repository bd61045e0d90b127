#pragma once

// The shared insert path: lines of text become draws. The batch import and the
// online import hand their lines to 导入一行 one at a time. It is lenient: it
// fills in a missing second blue "00" and drops what it can't use, without a
// word. Nothing here runs the number column pass: the callers run it once
// after the whole batch.

#include <QString>

class DrawHistory;

// Takes one line "issue red red red red red red blue [blue]", tokens parted by
// one blank or one comma. The commas of the caller's text become blanks. Eight
// tokens get a ninth "00"; anything but nine tokens is dropped. The reds are
// converted (a token that is no number gives 0) and sorted; the blue tokens
// are written in format "00" as text. An issue number already in the list
// leaves that row as it was.
void 导入一行(DrawHistory& history, QString& line);

// The import of a pasted text: trims it, splits it at every CR LF (a lone CR
// or LF ends no line) and hands each line to 导入一行, in order.
void importLines(DrawHistory& history, const QString& text);
