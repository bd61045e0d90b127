#include "wheel/wheelinput.h"

#include "platform/textrules.h"
#include "wheel/wheeldesign.h"

#include <QStringList>

#include <algorithm>

namespace wheel {

namespace {

constexpr int LongestShown = 12; // characters of a bad entry quoted in a refusal

bool isSeparator(QChar c)
{
    return c.isSpace() || c == QLatin1Char(',') || c == QLatin1Char(';') || c == QChar(0x3001); // 、
}

// The entries of the text: runs of anything but separators.
QStringList entries(const QString& text)
{
    const QString plain = text.normalized(QString::NormalizationForm_KC);
    QStringList result;
    qsizetype start = -1;
    for (qsizetype i = 0; i <= plain.size(); ++i) {
        const bool separator = i == plain.size() || isSeparator(plain[i]);
        if (separator && start >= 0) {
            result.append(plain.mid(start, i - start));
            start = -1;
        } else if (!separator && start < 0) {
            start = i;
        }
    }
    return result;
}

bool allDigits(const QString& entry)
{
    return !entry.isEmpty() &&
           std::all_of(entry.begin(), entry.end(), [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

// The number of an entry of plain digits; a long one counts as too large.
int numberOf(const QString& entry)
{
    if (entry.size() > 3)
        return 1000;
    int value = 0;
    for (QChar c : entry)
        value = value * 10 + (c.unicode() - '0');
    return value;
}

QString quoted(const QString& entry)
{
    return entry.size() <= LongestShown ? entry : entry.left(LongestShown) + QStringLiteral("…");
}

struct Rules {
    QString ball; // "红球" or "蓝球"
    int highest;
    int fewest;
    int most;
};

ChosenNumbers read(const QString& text, const Rules& rules)
{
    ChosenNumbers chosen;
    std::vector<bool> seen(std::size_t(rules.highest) + 1, false);
    for (const QString& entry : entries(text)) {
        if (!allDigits(entry)) {
            chosen.refusal = QStringLiteral("%1中的“%2”不是号码：请填 1 到 %3 之间的整数，用空格或逗号隔开。")
                                 .arg(rules.ball, quoted(entry))
                                 .arg(rules.highest);
            return chosen;
        }
        const int number = numberOf(entry);
        if (number < 1 || number > rules.highest) {
            chosen.refusal = QStringLiteral("%1号码 %2 超出范围：%1号码在 1 到 %3 之间。")
                                 .arg(rules.ball, quoted(entry))
                                 .arg(rules.highest);
            return chosen;
        }
        if (seen[std::size_t(number)]) {
            chosen.refusal = QStringLiteral("%1号码 %2 重复了：每个号码只能选一次。")
                                 .arg(rules.ball, textrules::format00(number));
            return chosen;
        }
        seen[std::size_t(number)] = true;
    }
    for (int number = 1; number <= rules.highest; ++number) {
        if (seen[std::size_t(number)])
            chosen.numbers.push_back(number);
    }
    const int count = int(chosen.numbers.size());
    if (count < rules.fewest) {
        chosen.refusal = count == 0 ? QStringLiteral("还没有选%1：旋转矩阵要 %2 到 %3 个%1。")
                                          .arg(rules.ball)
                                          .arg(rules.fewest)
                                          .arg(rules.most)
                                    : QStringLiteral("只选了 %1 个%2：旋转矩阵至少要 %3 个%2。")
                                          .arg(count)
                                          .arg(rules.ball)
                                          .arg(rules.fewest);
    } else if (count > rules.most) {
        chosen.refusal =
            QStringLiteral("选了 %1 个%2：旋转矩阵最多用 %3 个%2。").arg(count).arg(rules.ball).arg(rules.most);
    }
    if (!chosen.taken())
        chosen.numbers.clear();
    return chosen;
}

} // namespace

ChosenNumbers readReds(const QString& text)
{
    return read(text, {QStringLiteral("红球"), HighestRed, FewestPoints, MostPoints});
}

ChosenNumbers readBlues(const QString& text)
{
    return read(text, {QStringLiteral("蓝球"), HighestBlue, 0, HighestBlue});
}

std::vector<int> numbersNamed(const QString& text, int highest)
{
    std::vector<bool> seen(std::size_t(highest) + 1, false);
    for (const QString& entry : entries(text)) {
        const int number = allDigits(entry) ? numberOf(entry) : 0;
        if (number >= 1 && number <= highest)
            seen[std::size_t(number)] = true;
    }
    std::vector<int> numbers;
    for (int number = 1; number <= highest; ++number) {
        if (seen[std::size_t(number)])
            numbers.push_back(number);
    }
    return numbers;
}

QString numbersText(const std::vector<int>& numbers)
{
    QStringList written;
    for (int number : numbers)
        written.append(textrules::format00(number));
    return written.join(QLatin1Char(' '));
}

} // namespace wheel
