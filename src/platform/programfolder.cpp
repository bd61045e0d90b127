#include "platform/programfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace programfolder {

QString choose(const QString& executableFolder, const QString& dataFolder, const QString& formerDataFolder,
               const QString& historyName)
{
    if (QFileInfo::exists(QDir(executableFolder).filePath(buildTreeMarker)))
        return executableFolder;
    // A folder that can't be made is no fault here: the history then can't
    // be read or written, as with any folder the program may not write.
    const bool made = QDir().mkpath(dataFolder);
    const QString history = QDir(dataFolder).filePath(historyName);
    const QString formerHistory = QDir(formerDataFolder).filePath(historyName);
    if (QFileInfo::exists(history) || !QFileInfo::exists(formerHistory))
        return dataFolder;
    // QFile::rename copies across file systems and, when that fails, leaves
    // the former file as it was.
    if (!made || !QFile::rename(formerHistory, history))
        return formerDataFolder;
    QDir().rmdir(formerDataFolder);
    return dataFolder;
}

} // namespace programfolder
