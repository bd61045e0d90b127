// Times the number-group filter, each figure the median of several runs,
// printed one a line as "name: value":
// - on lists of seven-number groups, N groups to keep from and N to take
//   out, half of which stand in the first list: the filter at 10,000 and
//   100,000 lines, and the literal sequential replacement at 10,000 lines
//   on the same input (the two must agree);
// - one line of 1 MB of groups, with "01" and that same line taken out
//   (batfilter_1mbline_ms);
// - 10 MB of groups against 10 MB of groups, one of whose lines holds an
//   emoji (batfilter_astral_10mb_ms);
// - 1 MB of text against 30,000 lines of a digit and one of 30,000
//   different characters (batfilter_wide_alphabet_ms);
// - 4 MB of runs of one letter against 2,300 lines that end inside one
//   another (batfilter_nested_patterns_ms);
// and the longest stretch between two runs of pending events, or from the
// start or to the end of a run, over all of these: in processor time of the
// filter's thread, the work done in it (batfilter_longest_gap_ms), and in
// time on the clock, which a busy machine stretches
// (batfilter_longest_gap_wall_ms).

#include "forecast/groupfilter.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

namespace {

const QString lineEnd = QStringLiteral("\r\n");

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
    return {kept.join(lineEnd) + lineEnd, takenOut.join(lineEnd) + lineEnd};
}

// Groups one after another, parted by blanks, to `length` characters.
QString groupsInOneLine(qsizetype length, quint32 seed)
{
    QRandomGenerator random(seed);
    QString line;
    line.reserve(length + 32);
    while (line.size() < length)
        line += benchsupport::randomGroup(random).left(20) + QLatin1Char(' ');
    line.truncate(length);
    return line;
}

Lists oneLongLine()
{
    const QString line = groupsInOneLine(1 << 20, 20261124);
    return {line, QStringLiteral("01") + lineEnd + line};
}

Lists astral10mb()
{
    const int lines = (10 << 20) / 22; // 10 MB of 20-character lines and their line ends
    Lists lists = makeLists(lines, 20261125);
    const qsizetype middle = lists.takenOut.indexOf(lineEnd, lists.takenOut.size() / 2) + 2;
    lists.takenOut.insert(middle, QStringLiteral("08 09 \U0001F600") + lineEnd);
    return lists;
}

Lists wideAlphabet()
{
    QRandomGenerator random(20261126);
    const int letters = 30000;
    const auto letter = [](int i) { return QChar(char16_t(0x4E00 + i)); };
    QString kept;
    kept.reserve(1 << 20);
    while (kept.size() < (1 << 20)) {
        for (int token = 0; token < 20; ++token)
            kept += QStringLiteral("0") + letter(int(random.bounded(letters))) + QLatin1Char(' ');
        kept += lineEnd;
    }
    QStringList takenOut;
    for (int i = 0; i < letters; ++i)
        takenOut.append(QStringLiteral("0") + letter(i));
    return {kept, takenOut.join(lineEnd)};
}

// Lines to take out that end inside one another ("a", "aaaaaaaa", ...)
// behind longer ones that never match, over 4 MB of "a" runs parted by "b":
// each "a" run of the first text ends in the longest chain of them.
Lists nestedPatterns()
{
    QString kept;
    for (int run = 0; run < 2000; ++run)
        kept += QString(2000, QLatin1Char('a')) + QLatin1Char('b');
    QString takenOut;
    for (int length = 1999; length >= 1; --length)
        takenOut += QString(length, QLatin1Char('a')) + QLatin1Char('c') + lineEnd;
    takenOut += QStringLiteral("b") + lineEnd;
    for (int length = 1; length < 2000; length += 7)
        takenOut += QString(length, QLatin1Char('a')) + lineEnd;
    return {kept, takenOut};
}

double longestGapMs = 0;
double longestGapWallMs = 0;

double threadMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

template <class Filter>
std::pair<double, QString> timed(const Lists& lists, Filter filter, int runs)
{
    std::vector<double> ms;
    QString result;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        qint64 lastEvents = 0;
        double lastEventsThread = threadMs();
        const auto gap = [&] {
            const qint64 now = timer.nsecsElapsed();
            const double thread = threadMs();
            longestGapWallMs = std::max(longestGapWallMs, double(now - lastEvents) / 1e6);
            longestGapMs = std::max(longestGapMs, thread - lastEventsThread);
            lastEvents = now;
            lastEventsThread = thread;
        };
        result = filter(lists.kept, lists.takenOut, gap);
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
        gap();
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

    const Lists line = oneLongLine();
    const auto [lineMs, lineResult] = timed(line, groupfilter::filterGroups, 3);
    QString expected = line.kept;
    expected.remove(QStringLiteral("01"));
    if (lineResult != expected.trimmed() + lineEnd)
        qFatal("the long line came out wrong");

    const Lists astral = astral10mb();
    const auto [astralMs, astralResult] = timed(astral, groupfilter::filterGroups, 3);
    if (astralResult.size() >= astral.kept.size() || astralResult.isEmpty())
        qFatal("the run with an emoji took out nothing, or everything");

    const Lists wide = wideAlphabet();
    const auto [wideMs, wideResult] = timed(wide, groupfilter::filterGroups, 3);
    if (!wideResult.isEmpty())
        qFatal("the wide alphabet left something");

    const Lists nested = nestedPatterns();
    const auto [nestedMs, nestedResult] = timed(nested, groupfilter::filterGroups, 1);
    if (!nestedResult.isEmpty())
        qFatal("the nested lines left something");

    std::printf("batfilter_10000x10000_ms: %.2f\n", smallMs);
    std::printf("batfilter_100000x100000_ms: %.2f\n", largeMs);
    std::printf("batfilter_plain_10000x10000_ms: %.2f\n", plainMs);
    std::printf("batfilter_1mbline_ms: %.2f\n", lineMs);
    std::printf("batfilter_astral_10mb_ms: %.2f\n", astralMs);
    std::printf("batfilter_wide_alphabet_ms: %.2f\n", wideMs);
    std::printf("batfilter_nested_patterns_ms: %.2f\n", nestedMs);
    std::printf("batfilter_longest_gap_ms: %.2f\n", longestGapMs);
    std::printf("batfilter_longest_gap_wall_ms: %.2f\n", longestGapWallMs);
    return 0;
}
