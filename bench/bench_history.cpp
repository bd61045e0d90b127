// Times the history's way in and out: reading "list.ocd" with the number
// column pass that follows it at start, and writing it at exit, for a
// 3,500-row and a 100,000-row history. Prints one figure a line as
// "name: value", each the median of several runs.

#include "history/drawhistory.h"
#include "history/historyfile.h"
#include "history/numbercolumns.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void writeHistoryFile(const QString& path, int rows)
{
    QRandomGenerator random(20261122);
    QByteArray contents;
    for (int row = 0; row < rows; ++row) {
        const QString group = benchsupport::randomGroup(random);
        contents += QStringLiteral("%1*=*%2*=*%3\r\n").arg(2003001 + row).arg(group, group.left(2)).toLatin1();
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(path));
    file.write(contents);
}

void measure(const QString& folder, int rows, int runs)
{
    const QString path = historyfile::pathIn(folder);
    writeHistoryFile(path, rows);
    std::vector<double> load;
    std::vector<double> save;
    for (int run = 0; run < runs; ++run) {
        DrawHistory history;
        QElapsedTimer timer;
        timer.start();
        historyfile::read(path, history);
        numbercolumns::split(history);
        load.push_back(double(timer.nsecsElapsed()) / 1e6);
        if (history.count() != rows)
            qFatal("read %d rows of %d", history.count(), rows);
        timer.restart();
        historyfile::write(path, history);
        save.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("load_%d_ms: %.2f\n", rows, benchsupport::median(load));
    std::printf("save_%d_ms: %.2f\n", rows, benchsupport::median(save));
}

} // namespace

int main()
{
    QTemporaryDir folder;
    measure(folder.path(), 3500, 21);
    measure(folder.path(), 100000, 7);
    return 0;
}
