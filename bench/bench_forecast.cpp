// Times a forecast batch as each forecast window makes it with both ticks
// set: 10,000 groups with blue, each checked against a 3,500-row history; the
// general window plain, the filter window with "02 08 26" forbidden, the bet
// window with two to four of eight bet numbers. A batch's cost is mostly the
// stir calls of the generator, which belong to the design; the figure that
// matters is how much the rest adds. So the same number of bare Randomize
// calls is timed too, and the ratio of the two is printed. One figure a line
// as "name: value", each the median of several runs.

#include "forecast/betrule.h"
#include "forecast/filterrule.h"
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

struct Figures {
    double batchMs = 0;
    double stirMs = 0;
    double ratio = 0;
    long long calls = 0;
};

// Runs the batch `runs` times, each followed by as many bare stir calls as it
// made; the medians.
Figures measure(const BallRanges& ranges, const GroupHistory& collections, const ForecastHooks& hooks)
{
    std::vector<double> batchMs;
    std::vector<double> stirMs;
    std::vector<double> ratios;
    long long calls = 0;
    for (int run = 0; run < runs; ++run) {
        CountingRandom random;
        ForecastCore core(random, ranges, collections, hooks);
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
    return {benchsupport::median(batchMs), benchsupport::median(stirMs), benchsupport::median(ratios), calls};
}

} // namespace

int main()
{
    DrawHistory history;
    QRandomGenerator rows(20261122);
    benchsupport::addRandomDraws(history, historyRows, rows);
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

    const Figures general = measure(ranges, collections, {});
    std::printf("history_fill_ms: %.2f\n", fillMs);
    std::printf("randomize_calls: %lld\n", general.calls);
    std::printf("stir_ns_per_call: %.2f\n", general.stirMs * 1e6 / double(general.calls));
    std::printf("stir_floor_ms: %.2f\n", general.stirMs);
    std::printf("batch_ms: %.2f\n", general.batchMs);
    std::printf("ratio_to_stir_floor: %.3f\n", general.ratio);

    // The windows hand their text box in; here it is a text that stays.
    const QString forbidden = QStringLiteral("02 08 26");
    const Figures filter = measure(ranges, collections, filterrule::hooks([&forbidden] { return forbidden; }));
    std::printf("filter_batch_ms: %.2f\n", filter.batchMs);
    std::printf("filter_ratio_to_stir_floor: %.3f\n", filter.ratio);

    const QString betNumbers = QStringLiteral("02 08 13 17 21 26 29 31");
    const Figures bet = measure(ranges, collections, betrule::hooks([&betNumbers](QStringView reds) {
        return betrule::符合投注条件判断(betNumbers, 2, 4, reds);
    }));
    std::printf("bet_batch_ms: %.2f\n", bet.batchMs);
    std::printf("bet_ratio_to_stir_floor: %.3f\n", bet.ratio);
    return 0;
}
