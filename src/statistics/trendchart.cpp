#include "statistics/trendchart.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

#include <algorithm>
#include <bitset>
#include <optional>

namespace trendchart {

namespace {

const QString blank = QStringLiteral(" ");
const QString colon = QStringLiteral(":");

// The program's whole-number conversion, for texts of a sensible length: a
// mistyped cell of millions of digits would take seconds to convert, and no
// issue or ball is written with more than a few.
constexpr qsizetype longestNumber = 64;

std::optional<qint32> wholeNumber(const QString& text)
{
    if (text.size() > longestNumber)
        return std::nullopt;
    return textrules::toWhole(text);
}

// A row that holds a draw, as read, before the draws are put in order.
struct Parsed {
    qint32 issueNumber;
    QString issue;
    std::array<int, 6> reds;
    int blue;
};

// The indicators that the six reds give by themselves.
void measure(Draw& draw)
{
    const std::array<int, 6>& reds = draw.reds;
    draw.sum = 0;
    draw.odd = 0;
    draw.big = 0;
    draw.zones = {};
    draw.consecutive = 0;
    std::bitset<redCount> differences;
    for (size_t i = 0; i < reds.size(); ++i) {
        draw.sum += reds[i];
        draw.odd += reds[i] % 2;
        draw.big += reds[i] >= bigFrom ? 1 : 0;
        ++draw.zones[size_t((reds[i] - 1) / zoneSize)];
        if (i > 0 && reds[i] - reds[i - 1] == 1)
            ++draw.consecutive;
        for (size_t j = i + 1; j < reds.size(); ++j)
            differences.set(size_t(reds[j] - reds[i]));
    }
    draw.span = reds.back() - reds.front();
    draw.ac = int(differences.count()) - 5;
}

} // namespace

QString indicatorName(int indicator)
{
    static const std::array<QString, indicatorCount> names{
        QStringLiteral("和值"),   QStringLiteral("跨度"),   QStringLiteral("AC值"), QStringLiteral("奇偶比"),
        QStringLiteral("大小比"), QStringLiteral("三区比"), QStringLiteral("重号"), QStringLiteral("连号")};
    return names.at(size_t(indicator));
}

QString Draw::indicatorText(int indicator) const
{
    switch (indicator) {
    case Sum:
        return textrules::decimal(sum);
    case Span:
        return textrules::decimal(span);
    case AcValue:
        return textrules::decimal(ac);
    case OddEven:
        return textrules::decimal(odd) + colon + textrules::decimal(6 - odd);
    case BigSmall:
        return textrules::decimal(big) + colon + textrules::decimal(6 - big);
    case ZoneRatio:
        return textrules::decimal(zones[0]) + colon + textrules::decimal(zones[1]) + colon
               + textrules::decimal(zones[2]);
    case Repeats:
        return textrules::decimal(repeats);
    case Consecutive:
        return textrules::decimal(consecutive);
    default:
        return QString();
    }
}

bool parseGroup(const QString& group, std::array<int, 6>& reds, int& blue)
{
    // Only the first seven tokens count: the text behind them is not split,
    // however long it is.
    const QString trimmed = textrules::trim(group);
    qsizetype end = -1;
    for (int token = 0; token < 7 && (token == 0 || end >= 0); ++token)
        end = trimmed.indexOf(blank, end + 1);
    const QStringList tokens = textrules::split(end < 0 ? trimmed : trimmed.left(end), blank);
    if (tokens.size() < 7)
        return false;
    std::bitset<redCount + 1> seen;
    for (size_t i = 0; i < reds.size(); ++i) {
        const std::optional<qint32> red = wholeNumber(tokens[qsizetype(i)]);
        if (!red || *red < 1 || *red > redCount || seen.test(size_t(*red)))
            return false;
        seen.set(size_t(*red));
        reds[i] = *red;
    }
    const std::optional<qint32> drawnBlue = wholeNumber(tokens[6]);
    if (!drawnBlue || *drawnBlue < 1 || *drawnBlue > blueCount)
        return false;
    blue = *drawnBlue;
    std::sort(reds.begin(), reds.end());
    return true;
}

Chart build(const DrawHistory& history)
{
    Chart chart;
    std::vector<Parsed> parsed;
    parsed.reserve(size_t(history.count()));
    for (int row = 0; row < history.count(); ++row) {
        Parsed draw;
        if (!parseGroup(history.subItem(row, DrawHistory::GroupSubItem), draw.reds, draw.blue)) {
            ++chart.incompleteRows;
            continue;
        }
        draw.issue = textrules::trim(history.text(row));
        const std::optional<qint32> issue = wholeNumber(draw.issue);
        if (!issue) {
            ++chart.badIssueRows;
            continue;
        }
        draw.issueNumber = *issue;
        parsed.push_back(std::move(draw));
    }
    std::stable_sort(parsed.begin(), parsed.end(),
                     [](const Parsed& a, const Parsed& b) { return a.issueNumber < b.issueNumber; });

    chart.draws.resize(parsed.size());
    std::array<qint32, numberCount> omission{};
    for (size_t i = 0; i < parsed.size(); ++i) {
        Draw& draw = chart.draws[i];
        draw.issue = std::move(parsed[i].issue);
        draw.reds = parsed[i].reds;
        draw.blue = parsed[i].blue;
        for (qint32& value : omission)
            ++value;
        for (int red : draw.reds)
            omission[size_t(red - 1)] = 0;
        omission[size_t(redCount + draw.blue - 1)] = 0;
        draw.omission = omission;
        measure(draw);
        if (i > 0) {
            const Draw& before = chart.draws[i - 1];
            for (int red : draw.reds)
                draw.repeats += before.has(red - 1) ? 1 : 0;
        }
    }
    return chart;
}

QString footerLineName(int line)
{
    static const std::array<QString, footerLineCount> names{QStringLiteral("出现次数"), QStringLiteral("平均遗漏"),
                                                            QStringLiteral("最大遗漏"), QStringLiteral("最大连出")};
    return names.at(size_t(line));
}

int footerValue(const Footer& footer, int line, int numberIndex)
{
    const auto at = size_t(numberIndex);
    switch (line) {
    case Appearances:
        return footer.appearances.at(at);
    case MeanOmission:
        return footer.meanOmission.at(at);
    case LongestAbsence:
        return footer.longestAbsence.at(at);
    default:
        return footer.longestRun.at(at);
    }
}

Footer footer(const Chart& chart, int first, int count)
{
    Footer result;
    std::array<int, numberCount> absent{};
    std::array<int, numberCount> present{};
    for (int i = first; i < first + count; ++i) {
        const Draw& draw = chart.draws[size_t(i)];
        for (size_t n = 0; n < size_t(numberCount); ++n) {
            if (draw.omission[n] == 0) {
                ++result.appearances[n];
                absent[n] = 0;
                result.longestRun[n] = std::max(result.longestRun[n], ++present[n]);
            } else {
                present[n] = 0;
                result.longestAbsence[n] = std::max(result.longestAbsence[n], ++absent[n]);
            }
        }
    }
    for (size_t n = 0; n < size_t(numberCount); ++n)
        result.meanOmission[n] = (count - result.appearances[n]) / (result.appearances[n] + 1);
    return result;
}

int firstShown(const Chart& chart, int newest)
{
    const int all = int(chart.draws.size());
    if (newest <= 0 || newest >= all)
        return 0;
    return all - newest;
}

} // namespace trendchart
