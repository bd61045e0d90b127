#pragma once

// "list.ocd", the history on disk: one line a row, CR LF at the end of each,
// three fields joined by "*=*": the issue number, the number group text and
// the first red token. The third field is written but never read; the reader
// still demands that it be there. An empty list is the two bytes CR LF.

#include <QString>

class DrawHistory;

namespace historyfile {

inline const QString fileName = QStringLiteral("list.ocd");

// The history file of a program folder.
QString pathIn(const QString& programFolder);

// Appends the file's rows to the list. A missing or unreadable file adds
// nothing and is no fault. A line counts only with at least three fields and
// a non-blank first one; the first line of an issue number wins.
void read(const QString& path, DrawHistory& history);

// Writes every row, in row order, emptying the file first. No temporary file,
// no backup, and a file that can't be written is not reported.
void write(const QString& path, const DrawHistory& history);

} // namespace historyfile
