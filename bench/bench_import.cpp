// Times the batch import: 100,000 good lines, pasted as one CR LF text, go
// through the import routine of the import window and the number column pass
// that follows it, into a history that already holds 2,000 draws. Prints
// "name: value" lines, each the median of several runs.

#include "history/drawhistory.h"
#include "history/insertline.h"
#include "history/numbercolumns.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

QString pastedText(int lines, int firstIssue)
{
    QRandomGenerator random(20261122);
    QString text;
    for (int line = 0; line < lines; ++line) {
        text += QString::number(firstIssue + line);
        for (int ball = 0; ball < 6; ++ball)
            text += QString::asprintf(" %02d", int(random.bounded(1, 34)));
        text += QString::asprintf(" %02d\r\n", int(random.bounded(1, 17)));
    }
    return text;
}

} // namespace

int main()
{
    constexpr int lines = 100000;
    const QString existing = pastedText(2000, 1000000);
    const QString text = pastedText(lines, 2000000);
    std::vector<double> import;
    std::vector<double> pass;
    for (int run = 0; run < 5; ++run) {
        DrawHistory history;
        importLines(history, existing);
        QElapsedTimer timer;
        timer.start();
        importLines(history, text);
        const qint64 imported = timer.nsecsElapsed();
        numbercolumns::split(history);
        const qint64 total = timer.nsecsElapsed();
        if (history.count() != 2000 + lines)
            qFatal("imported %d rows", history.count());
        import.push_back(double(total) / 1e6);
        pass.push_back(double(total - imported) / 1e6);
    }
    std::printf("import_100000_ms: %.2f\n", benchsupport::median(import));
    std::printf("pass_102000_ms: %.2f\n", benchsupport::median(pass));
    return 0;
}
