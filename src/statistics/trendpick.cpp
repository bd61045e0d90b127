#include "statistics/trendpick.h"

#include "platform/textrules.h"

#include <QStringList>

namespace {

template <size_t Bits>
QString numbersOf(const std::bitset<Bits>& picked)
{
    QStringList numbers;
    for (size_t n = 1; n < Bits; ++n) {
        if (picked.test(n))
            numbers << textrules::format00(double(n));
    }
    return numbers.join(QLatin1Char(' '));
}

} // namespace

void TrendPick::toggleRed(int number)
{
    if (number >= 1 && number <= 33)
        m_reds.flip(size_t(number));
}

void TrendPick::toggleBlue(int number)
{
    if (number >= 1 && number <= 16)
        m_blues.flip(size_t(number));
}

bool TrendPick::hasRed(int number) const
{
    return number >= 1 && number <= 33 && m_reds.test(size_t(number));
}

bool TrendPick::hasBlue(int number) const
{
    return number >= 1 && number <= 16 && m_blues.test(size_t(number));
}

void TrendPick::clear()
{
    m_reds.reset();
    m_blues.reset();
}

QString TrendPick::text() const
{
    const QString reds = numbersOf(m_reds);
    if (m_blues.none())
        return reds;
    const QString plus = reds.isEmpty() ? QStringLiteral("+ ") : QStringLiteral(" + ");
    return reds + plus + numbersOf(m_blues);
}

qint64 TrendPick::bets() const
{
    const auto reds = qint64(m_reds.count());
    if (reds < 6)
        return 0;
    // C(reds, 6), exact at every step.
    qint64 combinations = 1;
    for (qint64 k = 1; k <= 6; ++k)
        combinations = combinations * (reds - 6 + k) / k;
    return combinations * qint64(m_blues.count());
}
