#include "platform/programfolder.h"

#include <QDir>
#include <QFileInfo>

namespace programfolder {

QString choose(const QString& executableFolder, const QString& dataFolder)
{
    if (QFileInfo::exists(QDir(executableFolder).filePath(buildTreeMarker)))
        return executableFolder;
    // A folder that can't be made is no fault here: the history then can't
    // be read or written, as with any folder the program may not write.
    QDir().mkpath(dataFolder);
    return dataFolder;
}

} // namespace programfolder
