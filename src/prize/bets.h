#pragma once

// The bets a player writes down, one bet or one bundle a line:
//
//   single     "08 09 17 25 27 32 06", "08 09 17 25 27 32  06" (a forecast's
//              result line), "08 09 17 25 27 32 + 06"
//   reds only  "08 09 17 25 27 32": checked as if its blue had missed
//   multiple   6 to 20 reds, "+" or "|", 1 to 16 blues (复式)
//   banker     1 to 5 bankers, "#", the other reds, "+", the blues (胆拖)
//
// Numbers are one or two digits, parted by blanks, tabs, commas or "、".
// The full-width forms of the marks and of the comma and blank, as a Chinese
// input method types them, are read as the plain ones.

#include <QString>
#include <QStringView>

#include <variant>
#include <vector>

namespace prize {

enum class BetForm { Single, RedsOnly, Multiple, Banker };

// Bit n of a mask stands for number n.
using RedMask = quint64;
using BlueMask = quint32;

struct Bet {
    BetForm form = BetForm::Single;
    RedMask bankers = 0; // a banker bundle's reds that every bet holds
    RedMask others = 0; // the reds the rest of each bet is chosen from: all reds of the other forms
    BlueMask blues = 0; // none for reds only
    int bankerCount = 0;
    int otherCount = 0;
    // The blues each red choice is bought with; a reds-only bet counts one,
    // a blue that can't win.
    int blueCount = 0;

    // How many bets of 2 元 the bundle holds.
    qint64 count() const;
};

// The binomial coefficient C(n, k), 0 outside 0 <= k <= n; n at most 64.
qint64 choose(int n, int k);

// A line read: nothing to check (a blank line), a bet, or the reason why the
// line can't be one, in plain Chinese.
struct BlankLine {};
struct Refusal {
    QString reason;
};
using ReadLine = std::variant<BlankLine, Bet, Refusal>;

ReadLine readBet(QStringView line);

// A line of the bets box that holds something, numbered from 1 as the box
// shows its lines: blank lines are skipped but counted.
struct BetLine {
    int number = 0;
    std::variant<Bet, Refusal> content;
};

// CR LF, a lone LF and a lone CR each end a line.
std::vector<BetLine> readBets(const QString& text);

} // namespace prize
