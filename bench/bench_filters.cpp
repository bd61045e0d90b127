// Times the number-group filter on lists of seven-number groups: N groups to
// keep from and N groups to take out, half of which stand in the first list.
// Prints the filter at 10,000 and 100,000 lines, and the literal sequential
// replacement at 10,000 lines on the same input, one figure a line as
// "name: value", each the median of several runs. The two ways must agree.

#include "forecast/groupfilter.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QRandomGenerator>

#include <cstdio>
#include <utility>
#include <vector>

namespace {

struct Lists {
    QString kept;
    QString takenOut;
};

Lists makeLists(int lines, quint32 seed)
{
    QRandomGenerator random(seed);
    QStringList kept;
    kept.reserve(lines);
    for (int i = 0; i < lines; ++i)
        kept.append(benchsupport::randomGroup(random).left(20));
    QStringList takenOut;
    takenOut.reserve(lines);
    for (int i = 0; i < lines; ++i) {
        takenOut.append(i % 2 == 0 ? kept[qsizetype(random.bounded(lines))]
                                   : benchsupport::randomGroup(random).left(20));
    }
    const QString lineEnd = QStringLiteral("\r\n");
    return {kept.join(lineEnd) + lineEnd, takenOut.join(lineEnd) + lineEnd};
}

template <class Filter>
std::pair<double, QString> timed(const Lists& lists, Filter filter, int runs)
{
    std::vector<double> ms;
    QString result;
    int yields = 0;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        result = filter(lists.kept, lists.takenOut, [&yields] { ++yields; });
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    return {benchsupport::median(ms), result};
}

} // namespace

int main()
{
    const Lists small = makeLists(10000, 20261122);
    const Lists large = makeLists(100000, 20261123);

    const auto [smallMs, smallResult] = timed(small, groupfilter::filterGroups, 5);
    const auto [largeMs, largeResult] = timed(large, groupfilter::filterGroups, 3);
    const auto [plainMs, plainResult] = timed(small, groupfilter::filterGroupsSequentially, 1);
    if (smallResult != plainResult)
        qFatal("the two ways disagree");
    if (largeResult.size() >= large.kept.size() || largeResult.isEmpty())
        qFatal("the large run took out nothing, or everything");

    std::printf("batfilter_10000x10000_ms: %.2f\n", smallMs);
    std::printf("batfilter_100000x100000_ms: %.2f\n", largeMs);
    std::printf("batfilter_plain_10000x10000_ms: %.2f\n", plainMs);
    return 0;
}
