#pragma once

// The rule of the bet forecast: the red numbers that the user bets on, and how
// many of them each group must hold ("1个" ... "4-5个"). It is the one forecast
// that can give up: a group that isn't found in 2000 attempts is no group.

#include "forecast/forecastcore.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace betrule {

constexpr int AttemptLimit = 2000;

// The fifteen counts of the pick list, in their order.
QStringList counts();

struct Text3Check {
    qint32 BetMin = 0; // the lower count, or the exact count
    qint32 BetMax = 0; // the upper count; 0 when BetMin is exact
    QString text;      // the bet numbers as they go back into the box
    bool valid = false;
};

// Reads the count and the bet numbers. Each token becomes two digits; the
// first one that then is no number of 1 to 33 ends the reading, and it and
// everything behind it are dropped from the text. A bad token is no failure
// of its own: the result fails only when fewer numbers were read than the
// count asks for (both counts of a range). Repeated numbers count twice.
Text3Check 判断TEXT3的合法性(const QString& countText, const QString& betNumbers);

// The bet numbers as the bet test reads them: the tokens of the trimmed text
// split at every single blank, each trimmed, the empty ones left out. Read
// once, they can be put to any number of lines.
class BetNumbers {
public:
    explicit BetNumbers(const QString& text);

    // How many of the tokens occur in the line, compared without regard to
    // case; a token is counted once however often it occurs.
    qint32 hits(QStringView line) const;

private:
    struct Token {
        QString text;
        // On a line of reds: the reds whose two digits hold the token. A
        // token without blanks can only stand inside one number of such a
        // line, so a digit stands in every number that has it, two digits
        // in the one number they write, and anything else in none.
        quint64 reds = 0;
    };
    std::vector<Token> m_tokens;
};

// True if the line holds the required count of the bet numbers: every
// token of the trimmed text that occurs in the line is a hit, a number
// named twice two.
bool 符合投注条件判断(const BetNumbers& betNumbers, qint32 betMin, qint32 betMax, QStringView line);
bool 符合投注条件判断(const QString& betNumbers, qint32 betMin, qint32 betMax, QStringView line);

// The hooks of the bet forecast: a candidate that passes the fixed tests is
// put to `betTest` with its first 18 characters, the six reds and never the
// blue; at most AttemptLimit candidates are tried for one group.
ForecastHooks hooks(std::function<bool(QStringView reds)> betTest);

} // namespace betrule
