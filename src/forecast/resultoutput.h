#pragma once

// What the user does with the results of a forecast window: "复制全部" puts
// the box's text on the clipboard, "导出到WORD" makes a word-processor
// document of it in the program folder and opens it for the user.

#include <QByteArray>
#include <QString>

class ClipboardService;
class DesktopLauncher;

namespace resultoutput {

inline const QString documentName = QStringLiteral("PrintTemp.doc");

// A box of nothing but blanks and line breaks leaves the clipboard as it
// was; any other text goes on it whole, untrimmed, with its line breaks.
void copyAll(ClipboardService& clipboard, const QString& boxText);

// The document: the box's text and a CR LF behind it, in Arial, with no size
// set, so that the word processor gives it its default size. Rich text form,
// which word processors open under the name ".doc".
QByteArray printDocument(const QString& boxText);

// The document's path in the program folder.
QString documentPath(const QString& programFolder);

// Writes the document over any older one and opens it with the user's
// default application. Nothing is reported. When the program folder can't
// take it, the document opens all the same from the temporary folder, under
// a name of its own, and an older "PrintTemp.doc" stays as it was.
void exportToWord(DesktopLauncher& launcher, const QString& programFolder, const QString& boxText);

} // namespace resultoutput
