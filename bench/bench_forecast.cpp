// Times a forecast batch as the general forecast window makes it with both
// ticks set: 10,000 groups with blue, each checked against a 3,500-row
// history. The batch's cost is mostly the stir calls of the generator, which
// belong to the design; the figure that matters is how much the rest adds.
// So the same number of bare Randomize calls is timed too, and the ratio of
// the two is printed. One figure a line as "name: value", each the median of
// several runs.

#include "forecast/forecastcore.h"
#include "forecast/grouphistory.h"
#include "history/drawhistory.h"
#include "platform/systemservices.h"
#include "settings/ballranges.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int historyRows = 3500;
constexpr int groups = 10000;
constexpr int runs = 5;

// The program's generator, with a count of the stir calls.
class CountingRandom final : public RandomSource {
public:
    void Randomize() override
    {
        ++calls;
        m_random.Randomize();
    }
    float Rnd() override { return m_random.Rnd(); }

    long long calls = 0;

private:
    SystemRandom m_random;
};

} // namespace

int main()
{
    DrawHistory history;
    QRandomGenerator rows(20261122);
    for (int row = 0; row < historyRows; ++row) {
        const QString issue = QString::number(2003001 + row);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(row, DrawHistory::GroupSubItem, benchsupport::randomGroup(rows));
    }
    GroupHistory collections;
    QElapsedTimer fillTimer;
    fillTimer.start();
    collections.fill(history);
    const double fillMs = double(fillTimer.nsecsElapsed()) / 1e6;

    BallRanges ranges;
    for (int ball = 1; ball <= BallRanges::RedBalls; ++ball) {
        ranges.min(ball) = 1;
        ranges.max(ball) = 33;
    }

    std::vector<double> batchMs;
    std::vector<double> stirMs;
    std::vector<double> ratios;
    long long calls = 0;
    for (int run = 0; run < runs; ++run) {
        CountingRandom random;
        ForecastCore core(random, ranges, collections);
        core.WantBlue = 1;
        core.NoHistory = 1;
        core.GroupCount = groups;

        QElapsedTimer timer;
        timer.start();
        const QString text = core.batchText();
        const double batch = double(timer.nsecsElapsed()) / 1e6;
        if (text.size() != qsizetype(groups) * 23)
            qFatal("the batch made %lld characters", (long long)text.size());

        calls = random.calls;
        RandomSource& bare = random;
        timer.restart();
        for (long long i = 0; i < calls; ++i)
            bare.Randomize();
        const double stir = double(timer.nsecsElapsed()) / 1e6;

        batchMs.push_back(batch);
        stirMs.push_back(stir);
        ratios.push_back(batch / stir);
    }
    std::printf("history_fill_ms: %.2f\n", fillMs);
    std::printf("randomize_calls: %lld\n", calls);
    std::printf("stir_ns_per_call: %.2f\n", benchsupport::median(stirMs) * 1e6 / double(calls));
    std::printf("stir_floor_ms: %.2f\n", benchsupport::median(stirMs));
    std::printf("batch_ms: %.2f\n", benchsupport::median(batchMs));
    std::printf("ratio_to_stir_floor: %.3f\n", benchsupport::median(ratios));
    return 0;
}
