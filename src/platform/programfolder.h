#pragma once

// Where the program keeps the history file "list.ocd", its temporary files
// and "PrintTemp.doc". Run from the build tree it keeps them beside the
// executable; installed, it can't write there and keeps them in the user's
// data folder instead.

#include <QString>

namespace programfolder {

// The file that the build writes beside the executable in the build tree.
// Installing never copies it, so its absence marks an installed program.
inline const QString buildTreeMarker = QStringLiteral("chengchuan-build-tree");

// `executableFolder` when the marker lies in it, else `dataFolder`, made
// with its parents when missing.
QString choose(const QString& executableFolder, const QString& dataFolder);

} // namespace programfolder
