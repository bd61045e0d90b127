// Times the chart table of each statistic over a 3,500-row history in issue
// order: the frequency of each ball, the differences and means of each pair
// of neighbouring reds, the even counts and the mean of the seven balls, each
// with its scratch column and the sort it leaves behind. Prints each one's
// median as "name: value", then the slowest as chart_table_3500_ms. Then the
// frequency of ball 1 over the same history with one mistyped cell: one of
// "99999999", whose span no chart can hold (huge_cell_3500_ms), and one of
// "32767", the widest span a chart holds (widest_chart_3500_ms).

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
#include <utility>
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

    const std::pair<const char*, const char*> mistyped[] = {{"huge_cell", "99999999"}, {"widest_chart", "32767"}};
    for (const auto& [name, cell] : mistyped) {
        std::vector<double> times;
        qint32 rowCount = 0;
        for (int run = 0; run < runs; ++run) {
            DrawHistory history;
            fill(history, groups);
            history.setSubItem(0, 2, QString::fromLatin1(cell));
            QElapsedTimer timer;
            timer.start();
            rowCount = perball::frequency(history, 1).table.RowCount();
            times.push_back(double(timer.nsecsElapsed()) / 1e6);
        }
        std::printf("%s_3500_ms: %.2f (%d chart rows)\n", name, benchsupport::median(times), int(rowCount));
    }
    return 0;
}
