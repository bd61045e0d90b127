#pragma once

// The prize tiers of the game and how many bets of a bundle reach each of
// them in one draw.
//
//   一等奖 6 + 1   floating          四等奖 5 + 0, 4 + 1   200 元
//   二等奖 6 + 0   floating          五等奖 4 + 0, 3 + 1    10 元
//   三等奖 5 + 1   3000 元           六等奖 2 + 1, 1 + 1, 0 + 1   5 元
//
// A bundle is counted by formula, never by listing its bets: of a multiple
// bet with h of its R reds drawn, C(h, k) x C(R - h, 6 - k) bets match k
// reds, and of each such red choice one bet has the drawn blue when the
// bundle holds it. A banker bundle works the same way on its other reds, its
// drawn bankers matched in every bet.

#include "prize/bets.h"

#include <QString>

#include <array>

namespace prize {

constexpr int tierCount = 6;

// Tier 1 to 6, or 0 for no prize.
int tierOf(int redsMatched, bool blueMatched);

// "一等奖" to "六等奖".
QString tierName(int tier);

// The fixed prize of tiers 3 to 6 in 元; the floating tiers 1 and 2 give 0.
qint64 fixedPrize(int tier);

// A draw: its six reds and its blue.
struct Draw {
    RedMask reds = 0;
    int blue = 0;
};

// Bets of a bundle by tier: element 0 holds the bets that won nothing.
using TierCounts = std::array<qint64, tierCount + 1>;

TierCounts tiersOf(const Bet& bet, const Draw& draw);

} // namespace prize
