#pragma once

// Where the program keeps the history file "list.ocd", its temporary files
// and "PrintTemp.doc". Run from the build tree it keeps them beside the
// executable; installed, it can't write there and keeps them in the user's
// data folder instead, ~/.local/share/chengchuan/.

#include <QString>

namespace programfolder {

// The file that the build writes beside the executable in the build tree.
// Installing never copies it, so its absence marks an installed program.
inline const QString buildTreeMarker = QStringLiteral("chengchuan-build-tree");

// `executableFolder` when the marker lies in it. Otherwise `dataFolder`,
// made with its parents when missing; the history file `historyName` that
// earlier versions kept in `formerDataFolder` is moved there first, unless
// `dataFolder` has one of its own, and the former folder goes when nothing
// else is left in it. When the history can't be moved, it stays where it is
// and `formerDataFolder` is the answer, so that the history is read and
// written there until a later start moves it.
QString choose(const QString& executableFolder, const QString& dataFolder, const QString& formerDataFolder,
               const QString& historyName);

} // namespace programfolder
