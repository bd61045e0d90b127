#include "prize/tiers.h"

#include <bit>

namespace prize {

namespace {

constexpr int redsInABet = 6;

// By reds matched (0 to 6), without and with the blue.
constexpr std::array<std::array<int, 2>, redsInABet + 1> tierTable{{
    {0, 6}, // 0 reds
    {0, 6}, // 1
    {0, 6}, // 2
    {0, 5}, // 3
    {5, 4}, // 4
    {4, 3}, // 5
    {2, 1}, // 6
}};

} // namespace

int tierOf(int redsMatched, bool blueMatched)
{
    if (redsMatched < 0 || redsMatched > redsInABet)
        return 0;
    return tierTable[size_t(redsMatched)][blueMatched ? 1 : 0];
}

QString tierName(int tier)
{
    static const std::array<QString, tierCount> names{QStringLiteral("一等奖"), QStringLiteral("二等奖"),
                                                      QStringLiteral("三等奖"), QStringLiteral("四等奖"),
                                                      QStringLiteral("五等奖"), QStringLiteral("六等奖")};
    return tier >= 1 && tier <= tierCount ? names[size_t(tier - 1)] : QString();
}

qint64 fixedPrize(int tier)
{
    switch (tier) {
    case 3:
        return 3000;
    case 4:
        return 200;
    case 5:
        return 10;
    case 6:
        return 5;
    default:
        return 0;
    }
}

TierCounts tiersOf(const Bet& bet, const Draw& draw)
{
    TierCounts counts{};
    const int bankersDrawn = std::popcount(bet.bankers & draw.reds);
    const int othersDrawn = std::popcount(bet.others & draw.reds);
    const int chosen = redsInABet - bet.bankerCount; // reds each bet takes from the others
    // Of the bundle's blues, at most one is the drawn one; a reds-only bet
    // has none and counts as one blue that missed.
    const bool blueDrawn = draw.blue >= 0 && draw.blue < 32 && ((bet.blues >> draw.blue) & 1u);
    const qint64 withBlue = blueDrawn ? 1 : 0;
    const qint64 withoutBlue = bet.blueCount - withBlue;
    for (int k = 0; k <= chosen; ++k) {
        const qint64 redChoices = choose(othersDrawn, k) * choose(bet.otherCount - othersDrawn, chosen - k);
        if (redChoices == 0)
            continue;
        const int matched = bankersDrawn + k;
        counts[size_t(tierOf(matched, true))] += redChoices * withBlue;
        counts[size_t(tierOf(matched, false))] += redChoices * withoutBlue;
    }
    return counts;
}

} // namespace prize
