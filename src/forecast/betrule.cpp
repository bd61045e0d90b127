#include "forecast/betrule.h"

#include "platform/runtimefailure.h"
#include "platform/textrules.h"

#include <array>
#include <optional>

namespace betrule {

namespace {

const QString blank = QStringLiteral(" ");

qint32 whole(const QString& text)
{
    const std::optional<qint32> value = textrules::toWhole(text);
    if (!value)
        throw RuntimeError(RuntimeError::TypeMismatch);
    return *value;
}

} // namespace

QStringList counts()
{
    return {QStringLiteral("1个"),   QStringLiteral("2个"),   QStringLiteral("3个"),   QStringLiteral("4个"),
            QStringLiteral("5个"),   QStringLiteral("1-2个"), QStringLiteral("1-3个"), QStringLiteral("1-4个"),
            QStringLiteral("1-5个"), QStringLiteral("2-3个"), QStringLiteral("2-4个"), QStringLiteral("2-5个"),
            QStringLiteral("3-4个"), QStringLiteral("3-5个"), QStringLiteral("4-5个")};
}

Text3Check 判断TEXT3的合法性(const QString& countText, const QString& betNumbers)
{
    Text3Check check;
    const QString range = QString(countText).remove(QStringLiteral("个"));
    const QStringList parts = textrules::split(range, QStringLiteral("-"));
    if (parts.size() == 2) {
        check.BetMin = whole(parts[0]);
        check.BetMax = whole(parts[1]);
    } else {
        check.BetMin = whole(range);
    }

    QString clean;
    qint32 count = 0;
    for (const QString& raw : textrules::split(betNumbers, blank)) {
        const QString trimmed = textrules::trim(raw);
        if (trimmed.isEmpty())
            continue;
        const QString token = textrules::format00(trimmed);
        const std::optional<qint32> number = textrules::toWhole(token);
        if (token.size() != 2 || !number || *number < 1 || *number > 33)
            break;
        ++count;
        clean += blank + token;
    }
    check.text = textrules::trim(clean);
    check.valid = check.BetMax == 0 ? check.BetMin <= count : check.BetMin <= count && check.BetMax <= count;
    return check;
}

namespace {

constexpr int highestRed = 33;

// The reds 1 to 33 written with two digits, and those whose digits hold each
// of the ten digits.
struct RedTexts {
    RedTexts()
    {
        for (qint32 red = 1; red <= highestRed; ++red) {
            text[red] = textrules::format00(double(red));
            for (int digit = 0; digit < 10; ++digit) {
                if (text[red].contains(QChar(u'0' + digit)))
                    withDigit[digit] |= quint64(1) << red;
            }
        }
    }
    std::array<QString, highestRed + 1> text;
    std::array<quint64, 10> withDigit{};
};

const RedTexts& redTexts()
{
    static const RedTexts texts;
    return texts;
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The reds of a line of six reds as a forecast writes it, two digits and a
// blank each, the last blank there or not; nothing for a line of any other
// form.
std::optional<quint64> redsOfLine(QStringView line)
{
    if (line.size() != 17 && line.size() != 18)
        return std::nullopt;
    quint64 reds = 0;
    for (qsizetype at = 0; at < line.size(); at += 3) {
        if (!isDigit(line[at]) || !isDigit(line[at + 1]) || (at + 2 < line.size() && line[at + 2] != QLatin1Char(' ')))
            return std::nullopt;
        const int red = (line[at].unicode() - '0') * 10 + (line[at + 1].unicode() - '0');
        if (red < 1 || red > highestRed)
            return std::nullopt;
        reds |= quint64(1) << red;
    }
    return reds;
}

} // namespace

BetNumbers::BetNumbers(const QString& text)
{
    for (const QString& raw : textrules::split(textrules::trim(text), blank)) {
        Token token{textrules::trim(raw)};
        if (token.text.isEmpty())
            continue;
        if (token.text.size() == 1 && isDigit(token.text[0])) {
            token.reds = redTexts().withDigit[token.text[0].unicode() - '0'];
        } else if (token.text.size() == 2 && isDigit(token.text[0]) && isDigit(token.text[1])) {
            const int red = (token.text[0].unicode() - '0') * 10 + (token.text[1].unicode() - '0');
            if (red >= 1 && red <= highestRed)
                token.reds = quint64(1) << red;
        }
        m_tokens.push_back(std::move(token));
    }
}

qint32 BetNumbers::hits(QStringView line) const
{
    qint32 hits = 0;
    if (const std::optional<quint64> reds = redsOfLine(line)) {
        for (const Token& token : m_tokens)
            hits += (token.reds & *reds) != 0 ? 1 : 0;
        return hits;
    }
    const QString text = line.toString();
    for (const Token& token : m_tokens) {
        if (textrules::containsNoCase(text, token.text))
            ++hits;
    }
    return hits;
}

bool 符合投注条件判断(const BetNumbers& betNumbers, qint32 betMin, qint32 betMax, QStringView line)
{
    const qint32 hits = betNumbers.hits(line);
    return betMax == 0 ? hits == betMin : hits >= betMin && hits <= betMax;
}

bool 符合投注条件判断(const QString& betNumbers, qint32 betMin, qint32 betMax, QStringView line)
{
    return 符合投注条件判断(BetNumbers(betNumbers), betMin, betMax, line);
}

ForecastHooks hooks(std::function<bool(QStringView reds)> betTest)
{
    ForecastHooks rule;
    rule.extraTest = [betTest = std::move(betTest)](const QString& groupText) {
        return betTest(QStringView(groupText).left(18));
    };
    rule.attemptLimit = AttemptLimit;
    return rule;
}

} // namespace betrule
