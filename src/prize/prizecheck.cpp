#include "prize/prizecheck.h"

#include "platform/eventpacer.h"
#include "platform/textrules.h"

#include <array>
#include <bit>
#include <numeric>

namespace prize {

namespace {

const QString lineEnd = QStringLiteral("\r\n");

// Events run after about this many bet-draw comparisons (or sooner, when
// they take long).
constexpr qint64 workBetweenEvents = qint64(1) << 22;

QString number(qint64 value)
{
    return textrules::decimal(value);
}

QString linePrefix(const BetLine& line)
{
    return QStringLiteral("第") + number(line.number) + QStringLiteral("行：");
}

QString redsOnlyNote(const Bet& bet)
{
    return bet.form == BetForm::RedsOnly ? QStringLiteral("（无蓝球）") : QString();
}

struct Totals {
    qint64 bets = 0;
    TierCounts tiers{};
};

void appendCost(QString& text, qint64 bets)
{
    text += QStringLiteral("注数：") + number(bets) + lineEnd;
    text += QStringLiteral("金额：") + number(2 * bets) + QStringLiteral("元") + lineEnd;
}

void appendSummary(QString& text, const Totals& totals)
{
    appendCost(text, totals.bets);
    qint64 fixed = 0;
    for (int tier = 1; tier <= tierCount; ++tier) {
        const qint64 bets = totals.tiers[size_t(tier)];
        text += tierName(tier) + QStringLiteral("：") + number(bets) + QStringLiteral("注") + lineEnd;
        fixed += bets * fixedPrize(tier);
    }
    text += QStringLiteral("固定奖金：") + number(fixed) + QStringLiteral("元") + lineEnd;
}

// Counts work done and lets events run when enough has piled up.
bool isSingleRedChoice(const Bet& bet)
{
    return bet.bankerCount == 0 && bet.otherCount == 6 && bet.blueCount == 1;
}

// The reds of every draw, grouped by the draw's blue: a single or reds-only
// bet, the common case of long lists, meets the draws of its own blue, where
// any count of reds matched may win, and the draws of the other blues, where
// only four reds or more do.
constexpr int fewestRedsWinningWithoutBlue = 4;

struct DrawsByBlue {
    std::array<std::vector<RedMask>, 17> reds; // by blue, 1 to 16
    qint64 count = 0;
};

DrawsByBlue groupedByBlue(const std::vector<IssuedDraw>& draws)
{
    DrawsByBlue grouped;
    for (const IssuedDraw& each : draws)
        grouped.reds[size_t(each.draw.blue)].push_back(each.draw.reds);
    grouped.count = qint64(draws.size());
    return grouped;
}

// The bit count is one instruction on all but the oldest processors; the
// loader picks the form that the machine has.
#if defined(__GNUC__) && defined(__x86_64__) && defined(__linux__)
#define PRIZE_BIT_COUNT_CLONES __attribute__((target_clones("popcnt", "default")))
#else
#define PRIZE_BIT_COUNT_CLONES
#endif

// Bets by tier over all draws, for one single or reds-only bet.
PRIZE_BIT_COUNT_CLONES TierCounts singleAgainstAll(const Bet& bet, const DrawsByBlue& draws)
{
    std::array<qint64, 7> withBlue{}; // by reds matched
    std::array<qint64, 7> withoutBlue{};
    for (int blue = 1; blue <= 16; ++blue) {
        if ((bet.blues >> blue) & 1u) {
            for (const RedMask reds : draws.reds[size_t(blue)])
                ++withBlue[size_t(std::popcount(bet.others & reds))];
        } else {
            for (const RedMask reds : draws.reds[size_t(blue)]) {
                const int matched = std::popcount(bet.others & reds);
                if (matched >= fewestRedsWinningWithoutBlue)
                    ++withoutBlue[size_t(matched)];
            }
        }
    }
    TierCounts counts{};
    for (int reds = 0; reds <= 6; ++reds) {
        counts[size_t(tierOf(reds, true))] += withBlue[size_t(reds)];
        counts[size_t(tierOf(reds, false))] += withoutBlue[size_t(reds)];
    }
    // One bet wins at most one tier in a draw: the draws left won nothing.
    counts[0] = draws.count - std::accumulate(counts.begin() + 1, counts.end(), qint64(0));
    return counts;
}

int bestTier(const TierCounts& counts)
{
    for (int tier = 1; tier <= tierCount; ++tier) {
        if (counts[size_t(tier)] > 0)
            return tier;
    }
    return 0;
}

void add(TierCounts& sum, const TierCounts& counts)
{
    for (size_t tier = 0; tier < sum.size(); ++tier)
        sum[tier] += counts[tier];
}

// One line of the report for each bet line: its prefix, then its refusal, or
// what `describe` writes of its bet and the note of a bet of reds only.
template <class Describe>
void reportLines(QString& text, const std::vector<BetLine>& lines, Describe&& describe)
{
    for (const BetLine& line : lines) {
        text += linePrefix(line);
        if (const Refusal* refusal = std::get_if<Refusal>(&line.content)) {
            text += refusal->reason + lineEnd;
            continue;
        }
        const Bet& bet = std::get<Bet>(line.content);
        describe(bet);
        text += redsOnlyNote(bet) + lineEnd;
    }
}

} // namespace

QString countReport(const std::vector<BetLine>& lines)
{
    QString text;
    qint64 bets = 0;
    reportLines(text, lines, [&](const Bet& bet) {
        bets += bet.count();
        text += number(bet.count()) + QStringLiteral("注");
    });
    appendCost(text, bets);
    return text;
}

QString drawReport(const std::vector<BetLine>& lines, const Draw& draw, const LetEventsRun& letEventsRun)
{
    QString text;
    Totals totals;
    EventPacer pacer(letEventsRun, workBetweenEvents);
    reportLines(text, lines, [&](const Bet& bet) {
        const TierCounts counts = tiersOf(bet, draw);
        totals.bets += bet.count();
        add(totals.tiers, counts);
        text += number(bet.count()) + QStringLiteral("注，");
        if (bestTier(counts) == 0) {
            text += QStringLiteral("未中奖");
        } else {
            QStringList wins;
            for (int tier = 1; tier <= tierCount; ++tier) {
                if (counts[size_t(tier)] > 0)
                    wins.append(tierName(tier) + number(counts[size_t(tier)]) + QStringLiteral("注"));
            }
            text += wins.join(QStringLiteral("，"));
        }
        pacer.worked(8);
    });
    appendSummary(text, totals);
    return text;
}

QString historyReport(const std::vector<BetLine>& lines, const std::vector<IssuedDraw>& draws,
                      const LetEventsRun& letEventsRun)
{
    const DrawsByBlue byBlue = groupedByBlue(draws);

    QString text;
    text.reserve(qsizetype(lines.size()) * 32 + 200);
    Totals totals;
    EventPacer pacer(letEventsRun, workBetweenEvents);
    const qint64 drawCount = qint64(draws.size());
    reportLines(text, lines, [&](const Bet& bet) {
        totals.bets += bet.count() * drawCount;
        int best = 0;
        qint64 wonDraws = 0;
        if (isSingleRedChoice(bet)) {
            const TierCounts counts = singleAgainstAll(bet, byBlue);
            add(totals.tiers, counts);
            best = bestTier(counts);
            wonDraws = drawCount - counts[0];
            pacer.worked(drawCount);
        } else {
            for (const IssuedDraw& each : draws) {
                const TierCounts counts = tiersOf(bet, each.draw);
                add(totals.tiers, counts);
                const int tier = bestTier(counts);
                if (tier != 0) {
                    ++wonDraws;
                    best = best == 0 ? tier : std::min(best, tier);
                }
            }
            pacer.worked(8 * drawCount);
        }
        if (best == 0)
            text += QStringLiteral("从未中奖");
        else
            text += QStringLiteral("最好成绩：") + tierName(best) + QStringLiteral("，中奖") + number(wonDraws)
                    + QStringLiteral("期");
    });
    appendSummary(text, totals);
    return text;
}

} // namespace prize
