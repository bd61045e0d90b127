#pragma once

// The text files of number groups that the filter windows import and save:
// one group a line. They are written as UTF-8, with the CR LF line ends that
// the boxes' texts have. Reading takes UTF-8; a file cut off in the middle of
// its last character keeps all before it, and one replacement character
// (U+FFFD) stands for the cut one. A file whose bytes are not UTF-8 anywhere
// else (an older one saved in GBK) is read as GB18030, so that nothing turns
// into replacement characters.
// The file dialog offers the one filter "*.txt" and adds ".txt" to a bare
// name; a cancelled dialog or any failure does nothing at all.

#include <QString>

#include <optional>

class FileDialogs;

namespace textfiles {

// Asks for a file to open and gives its text; nothing when the dialog was
// cancelled or the file can't be read.
std::optional<QString> importText(FileDialogs& dialogs);
// Asks for a name to save under (the dialog asks before it replaces a file)
// and writes the text there. The file is replaced only once the whole text
// is written: a failed save leaves an existing file as it was.
void saveText(FileDialogs& dialogs, const QString& text);

} // namespace textfiles
