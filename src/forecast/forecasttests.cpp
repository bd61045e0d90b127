#include "forecast/forecasttests.h"

#include "forecast/grouphistory.h"
#include "forecast/grouptests.h"

ForecastTests::ForecastTests(const BallRanges& ranges, const ForecastHooks& hooks) : m_ranges(ranges), m_hooks(hooks)
{
}

bool ForecastTests::allowsReds(const qint32* reds) const
{
    for (int i = 0; i < RedCount; ++i) {
        if (refusesRed(reds[i]))
            return false;
    }
    return true;
}

bool ForecastTests::inRanges(const qint32* reds) const
{
    for (int ball = 1; ball <= RedCount; ++ball) {
        if (!ballInRange(ball, reds[ball - 1]))
            return false;
    }
    return true;
}

bool ForecastTests::gapsFit(const qint32* reds, qint32 limit)
{
    for (int i = 0; i + 1 < RedCount; ++i) {
        if (!gapFits(reds[i], reds[i + 1], limit))
            return false;
    }
    return true;
}

bool ForecastTests::evenTest(QStringView line)
{
    const qint32 even = CountEvenNumbers(line);
    return !(even == 0 || even >= 7);
}

bool ForecastTests::averageTest(QStringView line)
{
    const qint32 average = AverageOfSeven(line);
    return !(average < 10 || average > 22);
}

bool ForecastTests::notInHistory(const GroupHistory& history, const QString& line, bool withBlue)
{
    // The history has one blank before the blue.
    const QString historyForm = QString(line).replace(QStringLiteral("  "), QStringLiteral(" "));
    return !history.contains(historyForm, withBlue);
}

bool ForecastTests::passes(const qint32* reds, const QString& line, bool historyTest, bool withBlue,
                           const GroupHistory& history) const
{
    return inRanges(reds) && gapsFit(reds, GapLimit) && evenTest(line) && averageTest(line) && ruleTest(line)
           && (!historyTest || notInHistory(history, line, withBlue));
}
