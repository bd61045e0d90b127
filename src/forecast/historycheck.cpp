#include "forecast/historycheck.h"

#include "forecast/forecastcore.h"
#include "forecast/grouphistory.h"
#include "history/drawhistory.h"
#include "platform/textrules.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace historycheck {

namespace {

constexpr int redCount = ForecastTests::RedCount;
constexpr qint32 highestRed = ForecastCore::RedHighest;
const QString lineEnd = QStringLiteral("\r\n");

struct Draw {
    std::array<qint32, redCount> reds{}; // ascending
    qint32 blue = 0;
};

// A token that is a whole number, written as the program reads numbers. Two
// plain digits, the form of a history's numbers, are read on the spot.
std::optional<qint32> exactWhole(QStringView token)
{
    const auto digit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (token.size() == 2 && digit(token[0]) && digit(token[1]))
        return (token[0].unicode() - '0') * 10 + (token[1].unicode() - '0');
    const std::optional<double> value = textrules::toNumber(token.toString());
    if (!value || *value != std::trunc(*value))
        return std::nullopt;
    return textrules::toWhole(*value);
}

// The six different reds of 1 to 33 and the blue of 1 to 16 that lead a
// number text, or nothing.
std::optional<Draw> drawOf(const QString& groupText)
{
    const QList<QStringView> tokens = textrules::splitView(textrules::trimView(groupText), u" ");
    if (tokens.size() < redCount + 1)
        return std::nullopt;
    Draw draw;
    for (int i = 0; i < redCount; ++i) {
        const std::optional<qint32> red = exactWhole(tokens[i]);
        if (!red || *red < 1 || *red > highestRed)
            return std::nullopt;
        draw.reds[size_t(i)] = *red;
    }
    std::ranges::sort(draw.reds);
    if (std::ranges::adjacent_find(draw.reds) != draw.reds.end())
        return std::nullopt;
    const std::optional<qint32> blue = exactWhole(tokens[redCount]);
    if (!blue || *blue < 1 || *blue > ForecastCore::BlueHighest)
        return std::nullopt;
    draw.blue = *blue;
    return draw;
}

// The count of the groups under the tests, as a walk over the ascending reds
// ball by ball. A red that the window's rule refuses, or that lies outside its
// ball's range or too far from the red before it, cuts off every group that
// it would begin; only whole groups go to the tests.
class RedGroupCount {
public:
    explicit RedGroupCount(const ForecastConditions& conditions) : m_tests(conditions.ranges, conditions.hooks)
    {
        // The rule's text stands still, so each red is asked once.
        for (qint32 red = 1; red <= highestRed; ++red) {
            m_allowed[size_t(red)] = !m_tests.refusesRed(red);
            m_redTexts[size_t(red)] = textrules::format00(double(red));
        }
        const std::array<qint32, redCount> any{1, 2, 3, 4, 5, 6};
        m_line = ForecastCore::resultLine(any.data(), false, 0);
    }

    // The groups whose first red is `first`.
    qint64 countFrom(qint32 first)
    {
        m_count = 0;
        if (fits(0, first))
            next(1);
        return m_count;
    }

private:
    // Places `red` as ball index + 1 if the pieces of the tests that one ball
    // answers allow it.
    bool fits(int index, qint32 red)
    {
        if (!m_allowed[size_t(red)] || !m_tests.ballInRange(index + 1, red))
            return false;
        m_reds[size_t(index)] = red;
        // Each red takes two characters and a blank in the line.
        QChar* digits = m_line.data(); // the line's own characters, whoever looked at it before
        digits[3 * index] = m_redTexts[size_t(red)][0];
        digits[3 * index + 1] = m_redTexts[size_t(red)][1];
        return true;
    }

    void next(int index)
    {
        const qint32 before = m_reds[size_t(index - 1)];
        // Enough reds must be left above for the balls behind this one.
        const qint32 highest = highestRed - (redCount - 1 - index);
        for (qint32 red = before + 1; red <= highest; ++red) {
            // A gap that is too wide now only widens with the red.
            if (!ForecastTests::gapFits(before, red, ForecastTests::GapLimit))
                break;
            if (!fits(index, red))
                continue;
            if (index + 1 < redCount)
                next(index + 1);
            else if (m_tests.passes(m_reds.data(), m_line, false, false, m_noHistory))
                ++m_count;
        }
    }

    ForecastTests m_tests;
    std::array<bool, highestRed + 1> m_allowed{};
    std::array<QString, highestRed + 1> m_redTexts;
    std::array<qint32, redCount> m_reds{};
    // The result line of the group at hand, without a blue: the tests never
    // read the blue, which stands behind two blanks.
    QString m_line;
    GroupHistory m_noHistory; // the history test is not asked here
    qint64 m_count = 0;
};

QString percent(qint64 part, qint64 whole, int decimals)
{
    return QString::number(100.0 * double(part) / double(whole), 'f', decimals);
}

} // namespace

PastDraws checkPastDraws(const DrawHistory& history, const ForecastConditions& conditions)
{
    struct Row {
        qint32 issue;
        QString group;
        std::optional<Draw> draw;
    };
    std::vector<Row> rows;
    rows.reserve(size_t(history.count()));
    PastDraws result;
    for (int row = 0; row < history.count(); ++row) {
        if (const std::optional<qint32> issue = textrules::toWhole(history.text(row))) {
            const QString group = history.subItem(row, DrawHistory::GroupSubItem);
            rows.push_back({*issue, group, drawOf(group)});
            result.total += rows.back().draw ? 1 : 0;
        }
    }
    std::ranges::stable_sort(rows, {}, &Row::issue);
    result.recentTotal = std::min(result.total, RecentDraws);

    const ForecastTests tests(conditions.ranges, conditions.hooks);
    GroupHistory earlier; // the rows before the draw at hand
    int wellFormedSeen = 0;
    for (const Row& row : rows) {
        if (const std::optional<Draw>& draw = row.draw) {
            const QString line = ForecastCore::resultLine(draw->reds.data(), conditions.wantBlue, draw->blue);
            const bool passed = tests.allowsReds(draw->reds.data())
                                && tests.passes(draw->reds.data(), line, conditions.noHistory, conditions.wantBlue,
                                                earlier);
            ++wellFormedSeen;
            result.passed += passed ? 1 : 0;
            if (wellFormedSeen > result.total - result.recentTotal)
                result.recentPassed += passed ? 1 : 0;
        }
        earlier.add(row.group);
    }
    return result;
}

qint64 countRedGroups(const ForecastConditions& conditions, const std::function<void()>& letEventsRun)
{
    RedGroupCount count(conditions);
    qint64 total = 0;
    for (qint32 first = 1; first <= highestRed - (redCount - 1); ++first) {
        total += count.countFrom(first);
        if (letEventsRun)
            letEventsRun();
    }
    return total;
}

QString reportText(const PastDraws& draws, qint64 redGroups, bool wantBlue)
{
    QStringList lines;
    if (draws.total > 0) {
        lines << QStringLiteral("全部") + textrules::decimal(draws.total) + QStringLiteral("期开奖中有")
                     + textrules::decimal(draws.passed) + QStringLiteral("期满足当前条件（")
                     + percent(draws.passed, draws.total, 1) + QStringLiteral("%）");
        lines << QStringLiteral("最近") + textrules::decimal(draws.recentTotal) + QStringLiteral("期开奖中有")
                     + textrules::decimal(draws.recentPassed) + QStringLiteral("期满足当前条件（")
                     + percent(draws.recentPassed, draws.recentTotal, 1) + QStringLiteral("%）");
    }
    lines << QStringLiteral("满足条件的红球组合：") + textrules::decimal(redGroups) + QStringLiteral("组，占全部")
                 + textrules::decimal(AllRedGroups) + QStringLiteral("组的") + percent(redGroups, AllRedGroups, 2)
                 + QStringLiteral("%");
    if (wantBlue)
        lines << QStringLiteral("含蓝球共") + textrules::decimal(redGroups * BlueNumbers) + QStringLiteral("注");
    if (draws.total > 0) {
        if (redGroups == 0) {
            // No group passes, so no draw did either: there is nothing to compare.
            lines << QStringLiteral("条件效率：无法计算");
            lines << QStringLiteral("没有任何红球组合满足当前条件，请放宽条件。");
        } else {
            const double ratio = (double(draws.passed) / double(draws.total))
                                 / (double(redGroups) / double(AllRedGroups));
            const QString shown = QString::number(ratio, 'f', 2);
            lines << QStringLiteral("条件效率：") + shown;
            const double rounded = shown.toDouble();
            if (rounded > 1.05)
                lines << QStringLiteral("比值大于1：当前条件偏向历史开出过的号码，保留真实开奖的比例高于保留任意组合的比例。");
            else if (rounded < 0.95)
                lines << QStringLiteral("比值小于1：当前条件去掉的真实开奖号码，比随机去掉的还多。");
            else
                lines << QStringLiteral("比值接近1：当前条件保留真实开奖号码与保留任意组合的比例相当。");
        }
    }
    return lines.join(lineEnd);
}

QString report(const DrawHistory& history, const ForecastConditions& conditions,
               const std::function<void()>& letEventsRun)
{
    const PastDraws draws = checkPastDraws(history, conditions);
    const qint64 redGroups = countRedGroups(conditions, letEventsRun);
    return reportText(draws, redGroups, conditions.wantBlue);
}

} // namespace historycheck
