// Times the chart table of each statistic over a 3,500-row history in issue
// order: the frequency of each ball, the differences and means of each pair
// of neighbouring reds, the even counts and the mean of the seven balls, each
// with its scratch column and the sort it leaves behind. Prints each one's
// median as "name: value", then the slowest as chart_table_3500_ms.

#include "history/drawhistory.h"
#include "history/numbercolumns.h"
#include "statistics/fillchart.h"
#include "statistics/perball.h"
#include "statistics/sevenball.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int rows = 3500;
constexpr int runs = 11;

void fill(DrawHistory& history, const QStringList& groups)
{
    for (int row = 0; row < groups.size(); ++row) {
        const QString issue = QString::number(2003001 + row);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(row, DrawHistory::GroupSubItem, groups[row]);
    }
    numbercolumns::split(history);
}

} // namespace

int main()
{
    QRandomGenerator random(20261122);
    QStringList groups;
    for (int row = 0; row < rows; ++row)
        groups << benchsupport::randomGroup(random, true);

    struct Statistic {
        std::string name;
        std::function<ChartTable(DrawHistory&)> build;
    };
    std::vector<Statistic> statistics;
    for (int ball = 1; ball <= 8; ++ball)
        statistics.push_back({"frequency_ball" + std::to_string(ball),
                              [ball](DrawHistory& h) { return perball::frequency(h, ball).table; }});
    for (int pair = 0; pair < perball::pairCount; ++pair) {
        statistics.push_back({"difference_pair" + std::to_string(pair),
                              [pair](DrawHistory& h) { return perball::differences(h, pair); }});
        statistics.push_back({"pair_mean_pair" + std::to_string(pair),
                              [pair](DrawHistory& h) { return perball::pairMeans(h, pair); }});
    }
    statistics.push_back({"even_counts", [](DrawHistory& h) { return sevenball::evenCounts(h); }});
    statistics.push_back({"seven_mean", [](DrawHistory& h) { return sevenball::means(h); }});

    double slowest = 0;
    for (const Statistic& statistic : statistics) {
        std::vector<double> times;
        for (int run = 0; run < runs; ++run) {
            DrawHistory history;
            fill(history, groups);
            QElapsedTimer timer;
            timer.start();
            const ChartTable table = statistic.build(history);
            times.push_back(double(timer.nsecsElapsed()) / 1e6);
            if (table.RowCount() < 1)
                qFatal("%s gave no rows", statistic.name.c_str());
        }
        const double ms = benchsupport::median(times);
        slowest = std::max(slowest, ms);
        std::printf("%s_3500_ms: %.2f\n", statistic.name.c_str(), ms);
    }
    std::printf("chart_table_3500_ms: %.2f\n", slowest);
    return 0;
}
