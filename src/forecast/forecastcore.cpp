#include "forecast/forecastcore.h"

#include "forecast/grouphistory.h"
#include "history/numbercolumns.h"
#include "platform/services.h"
#include "platform/textrules.h"
#include "settings/ballranges.h"

namespace {

const QString blank = QStringLiteral(" ");
const QString lineEnd = QStringLiteral("\r\n");

// The whole-number conversion of a product of the generator's single-precision
// value: the nearest whole number, halves to the even neighbour. The product
// is taken in single precision, as the generator gives it.
qint32 nearest(float value)
{
    return textrules::toWhole(double(value)).value_or(0);
}

} // namespace

ForecastCore::ForecastCore(RandomSource& random, const BallRanges& ranges, const GroupHistory& history, Hooks hooks)
    : m_random(random), m_ranges(ranges), m_history(history), m_hooks(std::move(hooks)), m_tests(m_ranges, m_hooks)
{
}

void ForecastCore::产生红色球(int n)
{
    Balls.assign(1, 0);
    int placed = 0;
    // The stir counter belongs to this call: a later draw of the group stirs
    // only as far as its t exceeds every t before it, also across redraws.
    qint32 j = 0;
    while (placed < n) {
        qint32 v = 0;
        for (;;) {
            m_random.Randomize();
            const qint32 t = nearest(m_random.Rnd() * 1000.0f) + 300;
            while (j < t) {
                m_random.Randomize();
                ++j;
            }
            // Between 1 and 34: number 1 gets only the lower half of its
            // interval, so half the chance of each other number, and 34 is
            // drawn again.
            v = nearest(m_random.Rnd() * 33.0f) + 1;
            if (v > RedHighest)
                continue;
            if (m_tests.refusesRed(v))
                continue;
            if (在产生的红色球中查找(v))
                continue;
            break;
        }
        // The array grows by one, keeping its contents: the element behind
        // the last placed number is always a spare 0.
        Balls.push_back(0);
        Balls[size_t(placed)] = v;
        ++placed;
    }
    排序6个数字(Balls);
}

bool ForecastCore::在产生的红色球中查找(qint32 number) const
{
    // Every element but the spare one at the end is a placed number.
    for (size_t i = 0; i + 1 < Balls.size(); ++i) {
        if (Balls[i] == number)
            return true;
    }
    return false;
}

qint32 ForecastCore::产生蓝色球()
{
    m_random.Randomize();
    const qint32 t = nearest(m_random.Rnd() * 1000.0f) + 300;
    for (qint32 j = 0; j < t; ++j)
        m_random.Randomize();
    // Between 1 and 17; 17 is taken as 16, not drawn again as a red 34 is.
    const qint32 v = nearest(m_random.Rnd() * 16.0f) + 1;
    return v > BlueHighest ? BlueHighest : v;
}

void ForecastCore::计算彩票组合数()
{
    产生红色球(RedCount);
    if (WantBlue == 1)
        Blue = 产生蓝色球();
    GroupText = resultLine(Balls.data(), WantBlue == 1, Blue);
}

QString ForecastCore::resultLine(const qint32* reds, bool withBlue, qint32 blue)
{
    QString line;
    for (int i = 0; i < RedCount; ++i) {
        line += textrules::format00(double(reds[i]));
        line += blank;
    }
    // Two blanks stand before the blue, on purpose: they keep it out of the
    // even and average tests, and they make the line 21 characters wide.
    if (withBlue)
        line += blank + textrules::format00(double(blue));
    return textrules::trim(line);
}

bool ForecastCore::判断是否在最大几率范围以内() const
{
    return m_tests.inRanges(Balls.data());
}

bool ForecastCore::判断相邻2数之差是否合理(qint32 limit) const
{
    return ForecastTests::gapsFit(Balls.data(), limit);
}

QString ForecastCore::预测号码()
{
    GroupText.clear();
    int attempts = 0;
    for (;;) {
        if (m_hooks.attemptLimit > 0) {
            ++attempts;
            if (attempts > m_hooks.attemptLimit) {
                letEventsRun();
                return QString();
            }
        }
        计算彩票组合数();
        // The window's rule in the draw has been asked of every red already.
        if (m_tests.passes(Balls.data(), GroupText, NoHistory == 1, WantBlue != 0, m_history))
            return GroupText;
    }
}

QString ForecastCore::batchText()
{
    QString text;
    if (GroupCount > 0)
        text.reserve(qsizetype(GroupCount) * 23);
    for (qint32 i = 1; i <= GroupCount; ++i) {
        const QString line = 预测号码();
        // Without a limit every call gives a line; with one, a group that
        // could not be found is left out and the batch goes on.
        if (!(m_hooks.attemptLimit > 0 && line.isEmpty())) {
            text += line;
            text += lineEnd;
        }
        if (i % 1000 == 0)
            letEventsRun();
    }
    return text;
}
