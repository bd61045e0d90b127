#include "../forecast/forecasthelpers.h"
#include "history/drawhistory.h"
#include "prize/bets.h"
#include "prize/draws.h"
#include "prize/prizecheck.h"
#include "prize/tiers.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <numeric>

using namespace prize;

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

QString numbers(const QList<int>& list)
{
    QStringList texts;
    for (int number : list)
        texts.append(QString::asprintf("%02d", number));
    return texts.join(QLatin1Char(' '));
}

Draw drawOf(const QList<int>& reds, int blue)
{
    Draw draw;
    for (int red : reds)
        draw.reds |= RedMask(1) << red;
    draw.blue = blue;
    return draw;
}

// A bundle of a random form, as numbers and as a player writes it.
struct Bundle {
    QList<int> bankers;
    QList<int> others;
    QList<int> blues; // none: reds only
    QString text;
};

Bundle randomBundle(QRandomGenerator& random)
{
    const int form = int(random.bounded(4)); // single, reds only, multiple, banker
    const int bankers = form == 3 ? int(random.bounded(1, 6)) : 0;
    const int others = form < 2 ? 6 : int(random.bounded(std::max(2, 7 - bankers), 15));
    const int blues = form == 1 ? 0 : form == 0 ? 1 : int(random.bounded(1, 17));
    QList<int> reds(33);
    QList<int> blueNumbers(16);
    std::iota(reds.begin(), reds.end(), 1);
    std::iota(blueNumbers.begin(), blueNumbers.end(), 1);
    std::shuffle(reds.begin(), reds.end(), random);
    std::shuffle(blueNumbers.begin(), blueNumbers.end(), random);
    Bundle bundle{reds.mid(0, bankers), reds.mid(bankers, others), blueNumbers.mid(0, blues), QString()};
    const QStringList joints = form == 0 ? QStringList{" ", "  ", " + "} : QStringList{" + ", " | "};
    bundle.text = (bankers > 0 ? numbers(bundle.bankers) + " # " : QString()) + numbers(bundle.others)
                  + (blues > 0 ? joints[random.bounded(int(joints.size()))] + numbers(bundle.blues) : QString());
    return bundle;
}

// A draw that holds up to six of the bundle's reds and often one of its blues.
Draw randomDrawNear(QRandomGenerator& random, const Bundle& bundle)
{
    QList<int> reds = bundle.bankers + bundle.others;
    std::shuffle(reds.begin(), reds.end(), random);
    reds.resize(std::min(reds.size(), qsizetype(random.bounded(7))));
    while (reds.size() < 6) {
        if (const int red = int(random.bounded(1, 34)); !reds.contains(red))
            reds.append(red);
    }
    const bool blueFromBundle = !bundle.blues.isEmpty() && random.bounded(2) == 0;
    return drawOf(reds, blueFromBundle ? bundle.blues[0] : int(random.bounded(1, 17)));
}

// Every bet of the bundle, listed, and its tier (whose table is checked on its own).
TierCounts expanded(const Bundle& bundle, const Draw& draw)
{
    TierCounts counts{};
    const int n = int(bundle.others.size());
    std::vector<bool> pick(size_t(n), false);
    std::fill(pick.begin(), pick.begin() + 6 - bundle.bankers.size(), true);
    do {
        int matched = 0;
        for (int red : bundle.bankers)
            matched += (draw.reds >> red) & 1u ? 1 : 0;
        for (int i = 0; i < n; ++i)
            matched += pick[size_t(i)] && ((draw.reds >> bundle.others[i]) & 1u) ? 1 : 0;
        if (bundle.blues.isEmpty())
            ++counts[size_t(tierOf(matched, false))];
        for (int blue : bundle.blues)
            ++counts[size_t(tierOf(matched, blue == draw.blue))];
    } while (std::prev_permutation(pick.begin(), pick.end()));
    return counts;
}

QString summary(qint64 bets, const TierCounts& tiers)
{
    QStringList out{QStringLiteral("注数：%1").arg(bets), QStringLiteral("金额：%1元").arg(2 * bets)};
    for (int tier = 1; tier <= 6; ++tier)
        out.append(QStringLiteral("%1：%2注").arg(tierName(tier)).arg(tiers[size_t(tier)]));
    const qint64 fixed = 3000 * tiers[3] + 200 * tiers[4] + 10 * tiers[5] + 5 * tiers[6];
    return lines(out + QStringList{QStringLiteral("固定奖金：%1元").arg(fixed)});
}

} // namespace

class PrizeCheckTest : public QObject {
    Q_OBJECT

private slots:
    void betsAgainstADraw_data();
    void betsAgainstADraw();
    void badLinesAreListedAndTheRestCounted();
    void formulaAndWholeHistoryAgreeWithEveryBetListed();
    void drawsAreTheCheckableRowsNewestFirst();
};

void PrizeCheckTest::betsAgainstADraw_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("checked"); // what the check against 01 02 03 04 05 06 + 01 says of it
    // Every match pattern of reds and blue.
    QTest::newRow("6 + 1") << "01 02 03 04 05 06 01" << "1注，一等奖1注";
    QTest::newRow("6 + 0") << "01 02 03 04 05 06 02" << "1注，二等奖1注";
    QTest::newRow("5 + 1") << "01 02 03 04 05 20 01" << "1注，三等奖1注";
    QTest::newRow("5 + 0") << "01 02 03 04 05 20 02" << "1注，四等奖1注";
    QTest::newRow("4 + 1") << "01 02 03 04 20 21 01" << "1注，四等奖1注";
    QTest::newRow("4 + 0") << "01 02 03 04 20 21 02" << "1注，五等奖1注";
    QTest::newRow("3 + 1") << "01 02 03 20 21 22 01" << "1注，五等奖1注";
    QTest::newRow("3 + 0") << "01 02 03 20 21 22 02" << "1注，未中奖";
    QTest::newRow("2 + 1") << "01 02 20 21 22 23 01" << "1注，六等奖1注";
    QTest::newRow("2 + 0") << "01 02 20 21 22 23 02" << "1注，未中奖";
    QTest::newRow("1 + 1") << "01 20 21 22 23 24 01" << "1注，六等奖1注";
    QTest::newRow("1 + 0") << "01 20 21 22 23 24 02" << "1注，未中奖";
    QTest::newRow("0 + 1") << "20 21 22 23 24 25 01" << "1注，六等奖1注";
    QTest::newRow("0 + 0") << "20 21 22 23 24 25 02" << "1注，未中奖";
    // Every form of a bet.
    const QString reds20 = QStringLiteral("01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20");
    QTest::newRow("result line") << "01 02 03 04 05 20  01" << "1注，三等奖1注";
    QTest::newRow("single with +") << "01 02 03 04 05 20 + 02" << "1注，四等奖1注";
    QTest::newRow("one digit, every separator, |") << "1,2，3、4\t20　21|1" << "1注，四等奖1注";
    QTest::newRow("reds only: its blue missed") << " 01 02 03 04 05 06 " << "1注，二等奖1注（无蓝球）";
    QTest::newRow("multiple reds") << "01 02 03 04 05 06 07 + 01 09" << "14注，一等奖1注，二等奖1注，三等奖6注，四等奖6注";
    QTest::newRow("multiple blues") << "01 02 03 20 21 22｜01 02 03" << "3注，五等奖1注";
    QTest::newRow("20 reds, 16 blues") << reds20 + " + 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16"
                                       << "620160注，一等奖1注，二等奖15注，三等奖84注，四等奖2625注，五等奖27755注，"
                                          "六等奖30030注";
    QTest::newRow("banker") << "01 02 # 03 04 20 21 22 + 01" << "5注，四等奖3注，五等奖2注";
    QTest::newRow("banker, full-width marks") << "01 02 03 04 05＃06 20 21＋01 16"
                                              << "6注，一等奖1注，二等奖1注，三等奖2注，四等奖2注";
    QTest::newRow("one banker, 32 others") << "33 # " + reds20 + " 21 22 23 24 25 26 27 28 29 30 31 32 + 02"
                                           << "201376注，四等奖6注，五等奖390注";
    // Every refusal.
    QTest::newRow("red 34") << "08 09 17 25 27 34 06" << "红球“34”超出1到33";
    QTest::newRow("red 0") << "0 09 17 25 27 32 06" << "红球“00”超出1到33";
    QTest::newRow("blue 17") << "08 09 17 25 27 32 17" << "蓝球“17”超出1到16";
    QTest::newRow("blue 0 behind +") << "08 09 17 25 27 32 + 00" << "蓝球“00”超出1到16";
    QTest::newRow("red twice") << "08 08 17 25 27 32 06" << "红球“08”重复";
    QTest::newRow("blue twice") << "01 02 03 04 05 06 + 07 7" << "蓝球“07”重复";
    QTest::newRow("banker among the others") << "01 02 # 02 03 04 05 06 + 07" << "“02”既是胆码又是拖码";
    QTest::newRow("five numbers") << "01 02 03 04 05" << "号码太少：一注要6个红球和1个蓝球";
    QTest::newRow("eight without +") << "01 02 03 04 05 06 07 08" << "没有“+”时至多7个号码；复式请用“+”隔开红球和蓝球";
    QTest::newRow("five reds and +") << "01 02 03 04 05 + 06" << "红球太少：至少要6个";
    QTest::newRow("21 reds") << reds20 + " 21 + 01" << "红球太多：至多20个";
    QTest::newRow("+ and no blue") << "01 02 03 04 05 06 07 +" << "“+”或“|”后面没有蓝球";
    QTest::newRow("+ and |") << "01 02 03 04 05 06 + 07 | 08" << "“+”或“|”只能有一个";
    QTest::newRow("two #") << "01 # 02 # 03 04 05 06 07 + 08" << "“#”只能有一个";
    QTest::newRow("# behind +") << "01 02 03 04 05 06 + 07 # 08" << "“#”要写在“+”前面";
    QTest::newRow("banker without +") << "01 # 02 03 04 05 06 07" << "胆拖要用“+”或“|”隔开蓝球";
    QTest::newRow("no banker") << "# 01 02 03 04 05 06 07 + 08" << "胆码要1到5个";
    QTest::newRow("six bankers") << "01 02 03 04 05 06 # 07 08 + 09" << "胆码要1到5个";
    QTest::newRow("six reds in a banker bundle") << "01 02 # 03 04 05 06 + 07" << "胆码和拖码合起来至少要7个红球";
    QTest::newRow("three digits") << "08 09 17 25 27 32 006" << "“006”不是号码，号码是一到两位数字";
    QTest::newRow("words") << "第1注：08 09 17 25 27 32 06" << "“第1注：08”不是号码，号码是一到两位数字";
    QTest::newRow("a long text is cut, not a half character")
        << "a😀😀😀😀😀😀 08" << "“a😀😀😀😀😀…”不是号码，号码是一到两位数字";
}

void PrizeCheckTest::betsAgainstADraw()
{
    QFETCH(QString, line);
    QFETCH(QString, checked);
    const QString report = drawReport(readBets(line), drawOf({1, 2, 3, 4, 5, 6}, 1));
    QCOMPARE(report.section(QStringLiteral("\r\n"), 0, 0), QStringLiteral("第1行：") + checked);
}

// Blank lines are skipped but counted; any line end ends a line; a bad line
// is listed with its reason and the others are counted all the same.
void PrizeCheckTest::badLinesAreListedAndTheRestCounted()
{
    const QString bets = QStringLiteral("08 09 17 25 27 32 06\r\n\r\n \t\n08 09 17 25 27 34 06\r"
                                        "01 02 # 03 04 05 06 07 + 08\n08 09 17 25 27 32");
    const std::vector<BetLine> read = readBets(bets);
    QCOMPARE(countReport(read), lines({"第1行：1注", "第4行：红球“34”超出1到33", "第5行：5注", "第6行：1注（无蓝球）",
                                      "注数：7", "金额：14元"}));
    const QString checked = drawReport(read, drawOf({1, 2, 3, 4, 5, 9}, 8));
    QCOMPARE(checked, lines({"第1行：1注，未中奖", "第4行：红球“34”超出1到33", "第5行：5注，三等奖2注，四等奖3注",
                             "第6行：1注，未中奖（无蓝球）"})
                          + summary(7, {2, 0, 0, 2, 3, 0, 0}));
    QCOMPARE(countReport(readBets(QStringLiteral("\r\n  \r\n"))), lines({"注数：0", "金额：0元"}));
}

// Random bundles of every form against made-up draws, each bet listed: the
// formula's tiers for each draw, and the line of each bundle and the summary
// over the whole history.
void PrizeCheckTest::formulaAndWholeHistoryAgreeWithEveryBetListed()
{
    for (const quint32 seed : {7u, 8u, 9u, 10u, 11u}) {
        QRandomGenerator random(seed);
        std::vector<Bundle> bundles;
        std::generate_n(std::back_inserter(bundles), 12, [&] { return randomBundle(random); });
        DrawHistory history;
        std::vector<Draw> drawn;
        for (int i = 0; i < 40; ++i) {
            drawn.push_back(randomDrawNear(random, bundles[size_t(i) % bundles.size()]));
            forecasttest::addRows(history, {drawNumbers(drawn.back()).remove("+ ") + " 00"});
        }
        QStringList betLines{QStringLiteral("01 02 03")};
        QStringList expected{QStringLiteral("第1行：号码太少：一注要6个红球和1个蓝球")};
        TierCounts total{};
        qint64 bets = 0;
        for (const Bundle& bundle : bundles) {
            const ReadLine read = readBet(bundle.text);
            QVERIFY2(std::holds_alternative<Bet>(read), qPrintable(bundle.text));
            for (int i = 0; i < 30; ++i) {
                const Draw near = randomDrawNear(random, bundle);
                QVERIFY2(tiersOf(std::get<Bet>(read), near) == expanded(bundle, near), qPrintable(bundle.text));
            }
            int best = 7; // no tier
            int won = 0;
            qint64 listed = 0;
            for (const Draw& draw : drawn) {
                const TierCounts counts = expanded(bundle, draw);
                QVERIFY2(tiersOf(std::get<Bet>(read), draw) == counts, qPrintable(bundle.text + drawNumbers(draw)));
                listed += std::accumulate(counts.begin(), counts.end(), qint64(0));
                std::transform(total.begin(), total.end(), counts.begin(), total.begin(), std::plus<>());
                const int tier = int(std::find_if(counts.begin() + 1, counts.end(), std::identity()) - counts.begin());
                won += tier < 7 ? 1 : 0;
                best = std::min(best, tier);
            }
            QCOMPARE(std::get<Bet>(read).count() * qint64(drawn.size()), listed);
            bets += listed;
            betLines.append(bundle.text);
            expected.append(QStringLiteral("第%1行：").arg(betLines.size())
                            + (best == 7 ? QStringLiteral("从未中奖")
                                         : QStringLiteral("最好成绩：%1，中奖%2期").arg(tierName(best)).arg(won))
                            + (bundle.blues.isEmpty() ? QStringLiteral("（无蓝球）") : QString()));
        }
        int eventRuns = 0;
        QCOMPARE(historyReport(readBets(lines(betLines)), checkableDraws(history), [&] { ++eventRuns; }),
                 lines(expected) + summary(bets, total));
        QCOMPARE(eventRuns, 0); // too little work to stop for events
    }
}

// Newest first by issue number as a whole number, issues that are none
// behind in row order; rows that are no draw left out.
void PrizeCheckTest::drawsAreTheCheckableRowsNewestFirst()
{
    DrawHistory history;
    forecasttest::addRows(history, {"01 02 03 04 05 06 07 00", "08 09 17 25 27 32 06 15", " 33 01 02 03 04 05 16 00",
                                    "01 02 03 04 05 06 01", "01 02 03 04 05 06 17", "01 02 03 04 05 05 07 00",
                                    "01 02 03 04 05 07", "01 02 x 04 05 06 07"});
    for (const auto& [row, issue] : {std::pair{0, "第一期"}, {1, "2007099"}, {2, "2007100"}, {3, "999"}})
        history.setText(row, QString::fromUtf8(issue));
    QStringList shown;
    for (const IssuedDraw& draw : checkableDraws(history))
        shown.append(draw.issue + QLatin1Char(' ') + drawNumbers(draw.draw));
    QCOMPARE(shown, (QStringList{"2007100 01 02 03 04 05 33 + 16", "2007099 08 09 17 25 27 32 + 06",
                                 "999 01 02 03 04 05 06 + 01", "第一期 01 02 03 04 05 06 + 07"}));
}

QTEST_APPLESS_MAIN(PrizeCheckTest)

#include "tst_prizecheck.moc"
