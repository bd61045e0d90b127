// Times the prize check. 100,000 single bets, written as the forecast writes
// them, against every draw of a 3,500-draw history: reading the lines, the
// check and the result text. And one bundle of 20 reds and 16 blues against
// one draw, read and checked. Each figure is the median of several runs,
// printed as "name: value".

#include "history/drawhistory.h"
#include "prize/bets.h"
#include "prize/draws.h"
#include "prize/prizecheck.h"

#include "benchsupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStringList>

#include <cstdio>
#include <vector>

namespace {

std::vector<prize::IssuedDraw> makeDraws(int count, quint32 seed)
{
    QRandomGenerator random(seed);
    DrawHistory history;
    benchsupport::addRandomDraws(history, count, random);
    return prize::checkableDraws(history);
}

// Result lines: six reds, two blanks, the blue.
QString makeSingles(int count, quint32 seed)
{
    QRandomGenerator random(seed);
    QStringList lines;
    lines.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QString group = benchsupport::randomGroup(random);
        lines.append(group.left(17) + QStringLiteral("  ") + group.mid(18, 2));
    }
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

} // namespace

int main()
{
    const std::vector<prize::IssuedDraw> draws = makeDraws(3500, 20261122);
    if (draws.size() != 3500)
        qFatal("the history lost draws");
    const QString singles = makeSingles(100000, 20261123);

    std::vector<double> ms;
    QString report;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        report = prize::historyReport(prize::readBets(singles), draws);
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    if (!report.contains(QStringLiteral("注数：350000000\r\n")) || report.contains(QStringLiteral("不是号码")))
        qFatal("the singles were not all checked");

    const QString bundle = QStringLiteral("01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 + "
                                          "01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16");
    std::vector<double> us;
    for (int run = 0; run < 7; ++run) {
        constexpr int rounds = 2000;
        QElapsedTimer timer;
        timer.start();
        for (int round = 0; round < rounds; ++round)
            report = prize::drawReport(prize::readBets(bundle), draws[size_t(round % 3500)].draw);
        us.push_back(double(timer.nsecsElapsed()) / 1e3 / rounds);
    }
    if (!report.startsWith(QStringLiteral("第1行：620160注，")))
        qFatal("the bundle was not counted");

    std::printf("prize_100000x3500_ms: %.1f\n", benchsupport::median(ms));
    std::printf("prize_bundle_20x16_us: %.2f\n", benchsupport::median(us));
    return 0;
}
