// Times the one-click update against a local copy of the lottery centre's
// feed that answers at once, from the start of the update to its report:
// the feed's answers, their reading, the choice of new draws, the inserts
// through 导入一行 and the number column pass. update_100_ms brings 100 new
// draws into a history of 3,400; update_full_3500_ms brings 3,500 draws into
// an empty history. No window is drawn. Prints "name: value" lines, each the
// median of several runs.

#include "feedanswers.h"
#include "history/drawhistory.h"
#include "history/insertline.h"
#include "history/numbercolumns.h"
#include "localhttpserver.h"
#include "online/drawupdate.h"

#include "benchsupport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <cstdio>
#include <vector>

namespace {

constexpr int feedDraws = 3500;

double timeUpdate(const QString& base, int historyDraws)
{
    const QList<sitepages::Draw> draws = feedanswers::newest(feedDraws);
    DrawHistory history;
    for (qsizetype i = feedDraws - 1; i >= feedDraws - historyDraws; --i) {
        QString line = draws[i].issue + QLatin1Char(' ') + draws[i].balls.join(QLatin1Char(' '));
        导入一行(history, line);
    }
    numbercolumns::split(history);

    QElapsedTimer timer;
    timer.start();
    DrawUpdate update(history, base, base);
    QEventLoop loop;
    QObject::connect(&update, &DrawUpdate::finished, &loop, &QEventLoop::quit);
    update.start();
    loop.exec();
    const int added = update.insertInto(history);
    numbercolumns::split(history);
    const QString report = update.report(added);
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    if (update.fromFallback() || added != feedDraws - historyDraws || history.count() != feedDraws)
        qFatal("added %d of %d: %s", added, feedDraws - historyDraws, qPrintable(report));
    return ms;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QByteArray recent = feedanswers::json(feedanswers::newest(100));
    const QByteArray all = feedanswers::json(feedanswers::newest(feedDraws));
    LocalHttpServer feed([&](const QByteArray& target) {
        const int count = feedanswers::issueCount(target);
        return count == 100 ? HttpAnswer{200, recent} : count > 100 ? HttpAnswer{200, all} : HttpAnswer::error(404);
    });

    std::vector<double> recentRuns, fullRuns;
    for (int run = 0; run < 7; ++run) {
        recentRuns.push_back(timeUpdate(feed.base(), feedDraws - 100));
        fullRuns.push_back(timeUpdate(feed.base(), 0));
    }
    std::printf("feed_answer_kb: %.0f\n", double(all.size()) / 1024);
    std::printf("update_100_ms: %.1f\n", benchsupport::median(recentRuns));
    std::printf("update_full_3500_ms: %.1f\n", benchsupport::median(fullRuns));
    return 0;
}
