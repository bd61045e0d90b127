#include "history/drawhistory.h"
#include "prize/bets.h"
#include "prize/draws.h"
#include "prize/prizecheck.h"
#include "prize/tiers.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <numeric>

using namespace prize;

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

QString two(int number)
{
    return QString::asprintf("%02d", number);
}

QString numbers(const QList<int>& list)
{
    QStringList texts;
    for (int number : list)
        texts.append(two(number));
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

// The rows of a history, issue and number group text each.
void addRows(DrawHistory& history, const QList<std::pair<QString, QString>>& rows)
{
    for (const auto& [issue, group] : rows) {
        QVERIFY(history.add(DrawHistory::keyOf(issue), issue));
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
    }
}

// The tier of one bet, from the game's table.
int plainTier(int reds, bool blue)
{
    if (reds == 6)
        return blue ? 1 : 2;
    if (reds == 5)
        return blue ? 3 : 4;
    if (reds == 4)
        return blue ? 4 : 5;
    if (reds == 3 && blue)
        return 5;
    return blue ? 6 : 0;
}

// A bundle as numbers, written in one of the ways players write it.
struct Bundle {
    QList<int> bankers;
    QList<int> others;
    QList<int> blues; // none: reds only
    QString text;
};

QList<int> distinct(QRandomGenerator& random, int count, int highest, const QList<int>& avoid = {})
{
    QList<int> picked;
    while (picked.size() < count) {
        const int number = int(random.bounded(1, highest + 1));
        if (!picked.contains(number) && !avoid.contains(number))
            picked.append(number);
    }
    std::ranges::sort(picked);
    return picked;
}

Bundle randomBundle(QRandomGenerator& random)
{
    Bundle bundle;
    switch (random.bounded(4)) {
    case 0: { // single, in one of its three ways
        bundle.others = distinct(random, 6, 33);
        bundle.blues = distinct(random, 1, 16);
        const QString blue = two(bundle.blues[0]);
        const QStringList joints{QStringLiteral(" "), QStringLiteral("  "), QStringLiteral(" + ")};
        bundle.text = numbers(bundle.others) + joints[random.bounded(3)] + blue;
        break;
    }
    case 1:
        bundle.others = distinct(random, 6, 33);
        bundle.text = numbers(bundle.others);
        break;
    case 2:
        bundle.others = distinct(random, int(random.bounded(6, 15)), 33);
        bundle.blues = distinct(random, int(random.bounded(1, 17)), 16);
        bundle.text = numbers(bundle.others) + QStringLiteral(" | ") + numbers(bundle.blues);
        break;
    default: {
        const int bankers = int(random.bounded(1, 6));
        bundle.bankers = distinct(random, bankers, 33);
        bundle.others = distinct(random, int(random.bounded(std::max(2, 7 - bankers), 14)), 33, bundle.bankers);
        bundle.blues = distinct(random, int(random.bounded(1, 17)), 16);
        bundle.text = numbers(bundle.bankers) + QStringLiteral(" # ") + numbers(bundle.others) + QStringLiteral(" + ")
                      + numbers(bundle.blues);
    }
    }
    return bundle;
}

// A draw that shares a random part of its reds and often its blue with the bundle.
Draw randomDrawNear(QRandomGenerator& random, const Bundle& bundle)
{
    const QList<int> reds = bundle.bankers + bundle.others;
    QList<int> drawn;
    while (drawn.size() < 6) {
        const int red = random.bounded(5) < 3 ? reds[random.bounded(int(reds.size()))] : int(random.bounded(1, 34));
        if (!drawn.contains(red))
            drawn.append(red);
    }
    const bool blueFromBundle = !bundle.blues.isEmpty() && random.bounded(2) == 0;
    const int blue = blueFromBundle ? bundle.blues[random.bounded(int(bundle.blues.size()))] : int(random.bounded(1, 17));
    return drawOf(drawn, blue);
}

// Every bet of the bundle, listed, and its tier.
TierCounts expanded(const Bundle& bundle, const Draw& draw)
{
    TierCounts counts{};
    const int chosen = 6 - int(bundle.bankers.size());
    const int n = int(bundle.others.size());
    std::vector<bool> pick(size_t(n), false);
    std::fill(pick.begin(), pick.begin() + chosen, true);
    do {
        int matched = 0;
        for (int red : bundle.bankers)
            matched += (draw.reds >> red) & 1u ? 1 : 0;
        for (int i = 0; i < n; ++i)
            matched += pick[size_t(i)] && ((draw.reds >> bundle.others[i]) & 1u) ? 1 : 0;
        if (bundle.blues.isEmpty())
            ++counts[size_t(plainTier(matched, false))];
        for (int blue : bundle.blues)
            ++counts[size_t(plainTier(matched, blue == draw.blue))];
    } while (std::prev_permutation(pick.begin(), pick.end()));
    return counts;
}

Bet betOf(const QString& text)
{
    const ReadLine read = readBet(text);
    if (const Refusal* refusal = std::get_if<Refusal>(&read))
        qFatal("refused: %s", qPrintable(refusal->reason));
    return std::get<Bet>(read);
}

// The report's line of a line number, without "第N行：".
QString reportLine(const QString& report, int number)
{
    const QString prefix = QStringLiteral("第%1行：").arg(number);
    for (const QString& line : report.split(QStringLiteral("\r\n"))) {
        if (line.startsWith(prefix))
            return line.mid(prefix.size());
    }
    return QStringLiteral("(none)");
}

QString summary(qint64 bets, const TierCounts& tiers)
{
    const QStringList names{"一等奖", "二等奖", "三等奖", "四等奖", "五等奖", "六等奖"};
    QStringList out{QStringLiteral("注数：%1").arg(bets), QStringLiteral("金额：%1元").arg(2 * bets)};
    for (int tier = 1; tier <= 6; ++tier)
        out.append(QStringLiteral("%1：%2注").arg(names[tier - 1]).arg(tiers[size_t(tier)]));
    out.append(QStringLiteral("固定奖金：%1元").arg(3000 * tiers[3] + 200 * tiers[4] + 10 * tiers[5] + 5 * tiers[6]));
    return lines(out);
}

} // namespace

class PrizeCheckTest : public QObject {
    Q_OBJECT

private slots:
    void everyMatchPatternHasItsTier_data();
    void everyMatchPatternHasItsTier();
    void betFormsAndRefusals_data();
    void betFormsAndRefusals();
    void badLinesAreListedAndTheRestCounted();
    void formulaAgreesWithEveryBetListed();
    void wholeHistoryAgreesWithEveryBetListed();
    void wholeHistoryBestTierAndDrawsWon();
    void drawsAreTheCheckableRowsNewestFirst();
};

void PrizeCheckTest::everyMatchPatternHasItsTier_data()
{
    QTest::addColumn<int>("reds");
    QTest::addColumn<bool>("blue");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("money");
    const QList<std::tuple<int, bool, QString, int>> rows{
        {6, true, "一等奖1注", 0},   {6, false, "二等奖1注", 0},  {5, true, "三等奖1注", 3000},
        {5, false, "四等奖1注", 200}, {4, true, "四等奖1注", 200}, {4, false, "五等奖1注", 10},
        {3, true, "五等奖1注", 10},   {3, false, "未中奖", 0},     {2, true, "六等奖1注", 5},
        {2, false, "未中奖", 0},      {1, true, "六等奖1注", 5},   {1, false, "未中奖", 0},
        {0, true, "六等奖1注", 5},    {0, false, "未中奖", 0},
    };
    for (const auto& [reds, blue, line, money] : rows)
        QTest::addRow("%d + %d", reds, int(blue)) << reds << blue << line << money;
}

// The draw 01-06 + 01; the bet takes `reds` of them and fills up from 20 on.
void PrizeCheckTest::everyMatchPatternHasItsTier()
{
    QFETCH(int, reds);
    QFETCH(bool, blue);
    QFETCH(QString, line);
    QFETCH(int, money);
    QList<int> bet;
    for (int i = 0; i < 6; ++i)
        bet.append(i < reds ? i + 1 : 20 + i);
    const QString text = numbers(bet) + QLatin1Char(' ') + two(blue ? 1 : 2);
    const QString report = drawReport(readBets(text), drawOf({1, 2, 3, 4, 5, 6}, 1));
    QCOMPARE(reportLine(report, 1), QStringLiteral("1注，") + line);
    QVERIFY2(report.endsWith(QStringLiteral("固定奖金：%1元\r\n").arg(money)), qPrintable(report));
    // A reds-only bet is checked as if its blue had missed.
    if (!blue) {
        const QString redsOnly = drawReport(readBets(numbers(bet)), drawOf({1, 2, 3, 4, 5, 6}, 1));
        QCOMPARE(reportLine(redsOnly, 1), QStringLiteral("1注，") + line + QStringLiteral("（无蓝球）"));
    }
}

void PrizeCheckTest::betFormsAndRefusals_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("counted"); // what the count says of the line
    const QString reds20 = QStringLiteral("01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20");
    const QString blues16 = QStringLiteral("01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16");
    QTest::newRow("single") << "08 09 17 25 27 32 06" << "1注";
    QTest::newRow("result line") << "08 09 17 25 27 32  06" << "1注";
    QTest::newRow("single with +") << "08 09 17 25 27 32 + 06" << "1注";
    QTest::newRow("one digit, every separator, |") << "8,9，17、25\t27　32|6" << "1注";
    QTest::newRow("reds only") << " 08 09 17 25 27 32 " << "1注（无蓝球）";
    QTest::newRow("multiple reds") << "01 02 03 04 05 06 07 + 08 09" << "14注";
    QTest::newRow("multiple blues") << "01 02 03 04 05 06｜01 02 03" << "3注";
    QTest::newRow("20 reds, 16 blues") << reds20 + " + " + blues16 << "620160注";
    QTest::newRow("banker") << "01 02 # 03 04 05 06 07 + 08" << "5注";
    QTest::newRow("banker, full-width marks") << "01 02 03 04 05＃06 07 08＋01 16" << "6注";
    QTest::newRow("one banker, 32 others") << "33 # " + reds20 + " 21 22 23 24 25 26 27 28 29 30 31 32 + 01"
                                           << "201376注";
    QTest::newRow("red 34") << "08 09 17 25 27 34 06" << "红球“34”超出1到33";
    QTest::newRow("red 0") << "0 09 17 25 27 32 06" << "红球“00”超出1到33";
    QTest::newRow("blue 17") << "08 09 17 25 27 32 17" << "蓝球“17”超出1到16";
    QTest::newRow("blue 0 behind +") << "08 09 17 25 27 32 + 00" << "蓝球“00”超出1到16";
    QTest::newRow("red twice") << "08 08 17 25 27 32 06" << "红球“08”重复";
    QTest::newRow("blue twice") << "01 02 03 04 05 06 + 07 7" << "蓝球“07”重复";
    QTest::newRow("banker among the others") << "01 02 # 02 03 04 05 06 + 07" << "“02”既是胆码又是拖码";
    QTest::newRow("five numbers") << "01 02 03 04 05" << "号码太少：一注要6个红球和1个蓝球";
    QTest::newRow("eight without +") << "01 02 03 04 05 06 07 08"
                                     << "没有“+”时至多7个号码；复式请用“+”隔开红球和蓝球";
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

void PrizeCheckTest::betFormsAndRefusals()
{
    QFETCH(QString, line);
    QFETCH(QString, counted);
    QCOMPARE(reportLine(countReport(readBets(line)), 1), counted);
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

void PrizeCheckTest::formulaAgreesWithEveryBetListed()
{
    QRandomGenerator random(20261122);
    for (int round = 0; round < 400; ++round) {
        const Bundle bundle = randomBundle(random);
        const Bet bet = betOf(bundle.text);
        const Draw draw = randomDrawNear(random, bundle);
        const TierCounts listed = expanded(bundle, draw);
        QCOMPARE(bet.count(), std::accumulate(listed.begin(), listed.end(), qint64(0)));
        QVERIFY2(tiersOf(bet, draw) == listed, qPrintable(bundle.text + " / " + drawNumbers(draw)));
    }
}

// Mixed lists against a made-up history, each bundle against every draw by
// listing its bets: the line of each bundle and the summary over all draws.
void PrizeCheckTest::wholeHistoryAgreesWithEveryBetListed()
{
    for (const quint32 seed : {7u, 8u, 9u}) {
        QRandomGenerator random(seed);
        std::vector<Bundle> bundles;
        QStringList betLines;
        for (int i = 0; i < 12; ++i) {
            bundles.push_back(randomBundle(random));
            betLines.append(bundles.back().text);
        }
        betLines.insert(3, QStringLiteral("01 02 03"));
        DrawHistory history;
        std::vector<Draw> drawn;
        for (int i = 0; i < 40; ++i) {
            drawn.push_back(randomDrawNear(random, bundles[size_t(i) % bundles.size()]));
            addRows(history, {{QString::number(2010001 + i), drawNumbers(drawn.back()).remove("+ ") + " 00"}});
        }
        const std::vector<IssuedDraw> draws = checkableDraws(history);
        QCOMPARE(draws.size(), drawn.size());

        QStringList expected;
        TierCounts total{};
        qint64 bets = 0;
        for (size_t i = 0; i < bundles.size(); ++i) {
            int best = 0;
            int won = 0;
            for (const Draw& draw : drawn) {
                const TierCounts counts = expanded(bundles[i], draw);
                for (size_t tier = 0; tier < counts.size(); ++tier) {
                    total[tier] += counts[tier];
                    bets += counts[tier];
                }
                const auto first = std::find_if(counts.begin() + 1, counts.end(), [](qint64 n) { return n > 0; });
                if (first != counts.end()) {
                    ++won;
                    best = best == 0 ? int(first - counts.begin()) : std::min(best, int(first - counts.begin()));
                }
            }
            const QString note = bundles[i].blues.isEmpty() ? QStringLiteral("（无蓝球）") : QString();
            const QString outcome = best == 0 ? QStringLiteral("从未中奖")
                                              : QStringLiteral("最好成绩：%1，中奖%2期").arg(tierName(best)).arg(won);
            expected.append(QStringLiteral("第%1行：").arg(i < 3 ? i + 1 : i + 2) + outcome + note);
        }
        expected.insert(3, QStringLiteral("第4行：号码太少：一注要6个红球和1个蓝球"));
        int eventRuns = 0;
        const QString report = historyReport(readBets(lines(betLines)), draws, [&] { ++eventRuns; });
        QCOMPARE(report, lines(expected) + summary(bets, total));
        QCOMPARE(eventRuns, 0); // too little work to stop for events
    }
}

void PrizeCheckTest::wholeHistoryBestTierAndDrawsWon()
{
    DrawHistory history;
    addRows(history, {{"2010001", "01 02 03 04 05 06 01 00"},
                      {"2010002", "01 02 03 04 05 07 02 00"},
                      {"2010003", "20 21 22 23 24 25 03 00"}});
    const QString bets = lines({"01 02 03 04 05 06 + 02", "30 31 32 33 29 28 + 16", "01 02 03 04 05 06",
                                "01 02 03 04 05 06 07 + 01 02"});
    const QString report = historyReport(readBets(bets), checkableDraws(history));
    // The first line: 6 + 0, then 5 + 1. The fourth, of seven reds: one red
    // choice holds all six drawn, six hold five, in the first two draws.
    QCOMPARE(report, lines({"第1行：最好成绩：二等奖，中奖2期", "第2行：从未中奖", "第3行：最好成绩：二等奖，中奖2期（无蓝球）",
                            "第4行：最好成绩：一等奖，中奖2期"})
                         + summary(3 * (1 + 1 + 1 + 14), {0, 2, 1 + 1 + 2, 1 + 12, 1 + 12, 0, 0}));
    // Long lists let events run now and then.
    int eventRuns = 0;
    const QString many = QStringLiteral("01 02 03 04 05 06 + 02\r\n").repeated(2000);
    std::vector<IssuedDraw> draws(2500, checkableDraws(history)[0]);
    historyReport(readBets(many), draws, [&] { ++eventRuns; });
    QVERIFY(eventRuns >= 1);
}

void PrizeCheckTest::drawsAreTheCheckableRowsNewestFirst()
{
    DrawHistory history;
    addRows(history, {{"2007099", "08 09 17 25 27 32 06 15"},
                      {"第一期", "01 02 03 04 05 06 07 00"},
                      {"2007100", " 33 01 02 03 04 05 16 00"},
                      {"999", "01 02 03 04 05 06 01"},
                      {"2007101", "01 02 03 04 05 06 17 00"},
                      {"2007102", "01 02 03 04 05 05 07 00"},
                      {"2007103", "01 02 03 04 05 07"},
                      {"2007104", "01 02 03 04 05 34 01 00"},
                      {"2007105", "01 02 03 04 x 06 01 00"},
                      {"2007106", ""}});
    QStringList shown;
    for (const IssuedDraw& draw : checkableDraws(history))
        shown.append(draw.issue + QLatin1Char(' ') + drawNumbers(draw.draw));
    QCOMPARE(shown, (QStringList{"2007100 01 02 03 04 05 33 + 16", "2007099 08 09 17 25 27 32 + 06",
                                 "999 01 02 03 04 05 06 + 01", "第一期 01 02 03 04 05 06 + 07"}));
}

QTEST_APPLESS_MAIN(PrizeCheckTest)

#include "tst_prizecheck.moc"
