#pragma once

// The prize check of the bets box: the text of its result, for the count
// and cost alone, against one draw, or against every draw of the history.
// Each line of the bets box that holds something gets a line of its own,
// "第N行：" and what came of it, or why it is no bet; the other lines are
// checked all the same. The summary follows, one figure a line:
//
//   注数：N  金额：N元  一等奖：N注 ... 六等奖：N注  固定奖金：N元
//
// 固定奖金 sums the fixed prizes of tiers 3 to 6; the floating tiers 1 and 2
// are counted only.

#include "prize/bets.h"
#include "prize/draws.h"

#include <QString>

#include <functional>
#include <vector>

namespace prize {

// Called now and then on long checks, to let the window's events run.
using LetEventsRun = std::function<void()>;

// "第N行：7注" for each line, then "注数" and "金额" alone. Needs no draw.
QString countReport(const std::vector<BetLine>& lines);

// Against one draw: "第N行：7注，四等奖1注，六等奖2注", or "…，未中奖". A
// reds-only line adds "（无蓝球）".
QString drawReport(const std::vector<BetLine>& lines, const Draw& draw, const LetEventsRun& letEventsRun = {});

// Against every draw: "第N行：最好成绩：三等奖，中奖5期", or "第N行：从未中奖";
// a reds-only line adds "（无蓝球）". The summary runs over every draw, as if
// each line had been bought for each of them.
QString historyReport(const std::vector<BetLine>& lines, const std::vector<IssuedDraw>& draws,
                      const LetEventsRun& letEventsRun = {});

} // namespace prize
