#include "platform/sysinfoprogram.h"

#include <QStandardPaths>

namespace sysinfoprogram {

const QStringList& candidates()
{
    static const QStringList programs{"hardinfo2", "hardinfo", "kinfocenter", "gnome-system-monitor",
                                      "mate-system-monitor"};
    return programs;
}

QString find()
{
    for (const QString& program : candidates())
        if (const QString path = QStandardPaths::findExecutable(program); !path.isEmpty())
            return path;
    return {};
}

} // namespace sysinfoprogram
