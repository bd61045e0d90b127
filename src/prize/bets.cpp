#include "prize/bets.h"

#include "platform/textrules.h"

#include <QVarLengthArray>

namespace prize {

namespace {

constexpr int redsInABet = 6;
constexpr int maxRed = 33;
constexpr int maxBlue = 16;
constexpr int maxMultipleReds = 20;
constexpr int maxBankers = 5;
constexpr int minBankerReds = 7;
// A refusal quotes at most this much of a text that is no number.
constexpr qsizetype quotedLength = 12;

bool isSeparator(QChar c)
{
    switch (c.unicode()) {
    case u' ':
    case u'\t':
    case u',':
    case u'，':
    case u'、':
    case u'\u3000':
        return true;
    default:
        return false;
    }
}

bool isBankerMark(QChar c)
{
    return c == u'#' || c == u'＃';
}

bool isBlueMark(QChar c)
{
    return c == u'+' || c == u'＋' || c == u'|' || c == u'｜';
}

bool isTwoDigitsAtMost(QStringView token)
{
    if (token.size() > 2)
        return false;
    for (QChar c : token) {
        if (c < u'0' || c > u'9')
            return false;
    }
    return true;
}

QString quoted(QStringView text)
{
    QStringView shown = text.left(quotedLength);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    const QString ellipsis = shown.size() < text.size() ? QStringLiteral("…") : QString();
    return QStringLiteral("“") + shown.toString() + ellipsis + QStringLiteral("”");
}

QString numberText(int number)
{
    return QStringLiteral("“") + textrules::format00(double(number)) + QStringLiteral("”");
}

// The numbers of one part of a line, in the order written, each checked for
// its range and for a repeat as it is added.
struct Part {
    QVarLengthArray<int, 24> numbers;
    quint64 mask = 0;
};

struct Parse {
    Part front; // the reds, or a banker bundle's bankers
    Part behindBanker; // a banker bundle's other reds
    Part blues;
    bool bankerMark = false;
    bool blueMark = false;
};

Refusal refuse(const QString& reason)
{
    return Refusal{reason};
}

// Reads the pieces of the line into the three parts, left to right; the
// first piece out of place ends it with a reason.
std::variant<Parse, Refusal> scan(QStringView line)
{
    Parse parse;
    qsizetype i = 0;
    const qsizetype n = line.size();
    while (i < n) {
        const QChar c = line[i];
        if (isSeparator(c)) {
            ++i;
        } else if (isBankerMark(c)) {
            if (parse.blueMark)
                return refuse(QStringLiteral("“#”要写在“+”前面"));
            if (parse.bankerMark)
                return refuse(QStringLiteral("“#”只能有一个"));
            parse.bankerMark = true;
            ++i;
        } else if (isBlueMark(c)) {
            if (parse.blueMark)
                return refuse(QStringLiteral("“+”或“|”只能有一个"));
            parse.blueMark = true;
            ++i;
        } else {
            const qsizetype start = i;
            while (i < n && !isSeparator(line[i]) && !isBankerMark(line[i]) && !isBlueMark(line[i]))
                ++i;
            const QStringView token = line.mid(start, i - start);
            if (!isTwoDigitsAtMost(token))
                return refuse(quoted(token) + QStringLiteral("不是号码，号码是一到两位数字"));
            const std::optional<qint32> number = textrules::toWhole(QString::fromRawData(token.data(), token.size()));
            Part& part = parse.blueMark ? parse.blues : parse.bankerMark ? parse.behindBanker : parse.front;
            part.numbers.push_back(number.value_or(0));
        }
    }
    return parse;
}

// The reds of a part in their range, none twice; `taken` holds the reds of
// the parts before, which a banker bundle may not repeat either.
std::optional<Refusal> markReds(Part& part, quint64 taken)
{
    for (int red : part.numbers) {
        if (red < 1 || red > maxRed)
            return refuse(QStringLiteral("红球") + numberText(red) + QStringLiteral("超出1到33"));
        const quint64 bit = quint64(1) << red;
        if (taken & bit)
            return refuse(numberText(red) + QStringLiteral("既是胆码又是拖码"));
        if (part.mask & bit)
            return refuse(QStringLiteral("红球") + numberText(red) + QStringLiteral("重复"));
        part.mask |= bit;
    }
    return std::nullopt;
}

std::optional<Refusal> markBlues(Part& part)
{
    for (int blue : part.numbers) {
        if (blue < 1 || blue > maxBlue)
            return refuse(QStringLiteral("蓝球") + numberText(blue) + QStringLiteral("超出1到16"));
        const quint64 bit = quint64(1) << blue;
        if (part.mask & bit)
            return refuse(QStringLiteral("蓝球") + numberText(blue) + QStringLiteral("重复"));
        part.mask |= bit;
    }
    return std::nullopt;
}

// A line without "+": six reds, or six reds and a blue.
ReadLine readWithoutBlueMark(Parse& parse)
{
    if (parse.bankerMark)
        return refuse(QStringLiteral("胆拖要用“+”或“|”隔开蓝球"));
    QVarLengthArray<int, 24>& numbers = parse.front.numbers;
    if (numbers.size() < redsInABet)
        return refuse(QStringLiteral("号码太少：一注要6个红球和1个蓝球"));
    if (numbers.size() > redsInABet + 1)
        return refuse(QStringLiteral("没有“+”时至多7个号码；复式请用“+”隔开红球和蓝球"));
    if (numbers.size() == redsInABet + 1) {
        parse.blues.numbers.push_back(numbers.back());
        numbers.pop_back();
    }
    if (std::optional<Refusal> refusal = markReds(parse.front, 0))
        return *refusal;
    if (std::optional<Refusal> refusal = markBlues(parse.blues))
        return *refusal;
    Bet bet;
    bet.others = parse.front.mask;
    bet.otherCount = redsInABet;
    bet.blues = BlueMask(parse.blues.mask);
    bet.blueCount = 1;
    bet.form = parse.blues.numbers.empty() ? BetForm::RedsOnly : BetForm::Single;
    return bet;
}

ReadLine readWithBlueMark(Parse& parse)
{
    if (std::optional<Refusal> refusal = markReds(parse.front, 0))
        return *refusal;
    if (std::optional<Refusal> refusal = markReds(parse.behindBanker, parse.front.mask))
        return *refusal;
    if (std::optional<Refusal> refusal = markBlues(parse.blues))
        return *refusal;
    if (parse.blues.numbers.empty())
        return refuse(QStringLiteral("“+”或“|”后面没有蓝球"));

    Bet bet;
    bet.blues = BlueMask(parse.blues.mask);
    bet.blueCount = int(parse.blues.numbers.size());
    if (!parse.bankerMark) {
        const int reds = int(parse.front.numbers.size());
        if (reds < redsInABet)
            return refuse(QStringLiteral("红球太少：至少要6个"));
        if (reds > maxMultipleReds)
            return refuse(QStringLiteral("红球太多：至多20个"));
        bet.others = parse.front.mask;
        bet.otherCount = reds;
        bet.form = reds == redsInABet && bet.blueCount == 1 ? BetForm::Single : BetForm::Multiple;
        return bet;
    }
    const int bankers = int(parse.front.numbers.size());
    const int others = int(parse.behindBanker.numbers.size());
    if (bankers < 1 || bankers > maxBankers)
        return refuse(QStringLiteral("胆码要1到5个"));
    if (bankers + others < minBankerReds)
        return refuse(QStringLiteral("胆码和拖码合起来至少要7个红球"));
    bet.form = BetForm::Banker;
    bet.bankers = parse.front.mask;
    bet.bankerCount = bankers;
    bet.others = parse.behindBanker.mask;
    bet.otherCount = others;
    return bet;
}

bool isBlank(QStringView line)
{
    for (QChar c : line) {
        if (c != u' ' && c != u'\t' && c != u'\u3000')
            return false;
    }
    return true;
}

} // namespace

qint64 choose(int n, int k)
{
    if (k < 0 || n < 0 || k > n)
        return 0;
    k = std::min(k, n - k);
    qint64 result = 1;
    for (int i = 1; i <= k; ++i)
        result = result * (n - k + i) / i; // exact: a product of i consecutive numbers divides by i!
    return result;
}

qint64 Bet::count() const
{
    return choose(otherCount, redsInABet - bankerCount) * blueCount;
}

ReadLine readBet(QStringView line)
{
    if (isBlank(line))
        return BlankLine{};
    std::variant<Parse, Refusal> scanned = scan(line);
    if (Refusal* refusal = std::get_if<Refusal>(&scanned))
        return *refusal;
    Parse& parse = std::get<Parse>(scanned);
    return parse.blueMark ? readWithBlueMark(parse) : readWithoutBlueMark(parse);
}

std::vector<BetLine> readBets(const QString& text)
{
    std::vector<BetLine> lines;
    lines.reserve(size_t(text.count(u'\n')) + 1);
    int number = 0;
    qsizetype start = 0;
    const qsizetype n = text.size();
    while (start <= n) {
        qsizetype end = start;
        while (end < n && text[end] != u'\r' && text[end] != u'\n')
            ++end;
        ++number;
        const ReadLine read = readBet(QStringView(text).mid(start, end - start));
        if (const Bet* bet = std::get_if<Bet>(&read))
            lines.push_back({number, *bet});
        else if (const Refusal* refusal = std::get_if<Refusal>(&read))
            lines.push_back({number, *refusal});
        if (end < n && text[end] == u'\r' && end + 1 < n && text[end + 1] == u'\n')
            ++end;
        start = end + 1;
    }
    return lines;
}

} // namespace prize
