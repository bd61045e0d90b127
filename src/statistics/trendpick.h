#pragma once

// The pick row of the trend chart (选号区): the numbers the player clicks,
// as a number group text, its count of bets and its cost. Several reds or
// blues make a multiple bet: C(reds, 6) bets for each blue.

#include <QString>

#include <bitset>

class TrendPick {
public:
    static constexpr int pricePerBet = 2; // 元

    // Reds 1 to 33, blues 1 to 16; a number outside is ignored.
    void toggleRed(int number);
    void toggleBlue(int number);
    bool hasRed(int number) const;
    bool hasBlue(int number) const;
    void clear();
    bool isEmpty() const { return m_reds.none() && m_blues.none(); }

    // "01 05 09 12 20 33 + 08": reds ascending, " + ", blues ascending; the
    // side with nothing picked is left out ("01 05", "+ 08").
    QString text() const;
    qint64 bets() const;
    qint64 cost() const { return bets() * pricePerBet; }

private:
    std::bitset<34> m_reds;  // bit n for red n
    std::bitset<17> m_blues; // bit n for blue n
};
