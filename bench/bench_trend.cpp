// Times the trend chart over a 3,500-draw history whose rows stand in no
// particular order: the logic (every draw's omissions and indicators and the
// statistics over all draws, trend_logic_3500_ms), the window opened on
// "全部" from its construction to its first painted chart
// (trend_window_3500_ms, offscreen), and the picture of the whole chart
// written as PNG (trend_picture_3500_ms). Each figure is the median of
// several runs.

#include "history/drawhistory.h"
#include "settings/settingsstore.h"
#include "statistics/trendchart.h"
#include "statistics/trendchartwindow.h"
#include "statistics/trendmodel.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include "benchsupport.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

namespace {

constexpr int draws = 3500;

// Tells when the chart's cells have been painted once.
class FirstPaint : public QObject {
public:
    bool painted = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted = true;
        return false;
    }
};

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    programstyle::applyTo(application);

    QRandomGenerator random(20261122);
    std::vector<int> order(draws);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random);
    DrawHistory history;
    for (int row : order) {
        const QString issue = QString::number(2003001 + row);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, benchsupport::randomGroup(random));
    }

    std::vector<double> logic;
    for (int run = 0; run < 21; ++run) {
        QElapsedTimer timer;
        timer.start();
        const trendchart::Chart chart = trendchart::build(history);
        const trendchart::Footer footer = trendchart::footer(chart, 0, int(chart.draws.size()));
        logic.push_back(double(timer.nsecsElapsed()) / 1e6);
        if (chart.draws.size() != size_t(draws) || footer.appearances[0] == 0)
            qFatal("the chart lost draws");
    }
    std::printf("trend_logic_3500_ms: %.2f\n", benchsupport::median(logic));

    TestApp app;
    app.context.settings.write(QStringLiteral("走势图"), QStringLiteral("期数"), QStringLiteral("全部"));
    std::vector<double> window;
    std::vector<double> picture;
    for (int run = 0; run < 7; ++run) {
        QElapsedTimer timer;
        timer.start();
        TrendChartWindow chartWindow(app.context, history);
        FirstPaint firstPaint;
        chartWindow.chartView->viewport()->installEventFilter(&firstPaint);
        chartWindow.show();
        while (!firstPaint.painted)
            QCoreApplication::processEvents();
        window.push_back(double(timer.nsecsElapsed()) / 1e6);
        if (chartWindow.chartModel()->rowCount() != draws)
            qFatal("the window shows %d draws", chartWindow.chartModel()->rowCount());

        if (run < 3) {
            app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("chart.png"));
            timer.restart();
            chartWindow.savePicture();
            picture.push_back(double(timer.nsecsElapsed()) / 1e6);
            if (!QFile::exists(app.fileDialogs.nextName))
                qFatal("no picture written");
        }
        chartWindow.close();
    }
    std::printf("trend_window_3500_ms: %.2f\n", benchsupport::median(window));
    std::printf("trend_picture_3500_ms: %.2f\n", benchsupport::median(picture));
    return 0;
}
