#include "platform/textrules.h"

#include <QDate>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace textrules {

namespace {

bool isAsciiDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The white space that the number test takes around a number: the characters
// of Unicode's White_Space property, which is what QChar::isSpace tells. Tab,
// line feed, vertical tab, form feed, carriage return, blank, U+0085, the
// no-break space U+00A0, U+1680, U+2000 to U+200A, the line and paragraph
// separators U+2028 and U+2029, U+202F, U+205F and the ideographic space U+3000
// that a Chinese input method types. Inside a number none of them is taken.
QStringView numberView(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin].isSpace())
        ++begin;
    while (end > begin && text[end - 1].isSpace())
        --end;
    return QStringView(text).sliced(begin, end - begin);
}

// Reads the number grammar and gives the text in the form QString::toDouble
// takes (grouping commas dropped), or nothing when the text is not a number.
std::optional<QString> plainNumberText(const QString& text)
{
    const QStringView s = numberView(text);
    const qsizetype n = s.size();
    qsizetype i = 0;
    QString out;
    out.reserve(n);

    if (i < n && (s[i] == QLatin1Char('+') || s[i] == QLatin1Char('-')))
        out += s[i++];

    bool mantissaDigits = false;
    while (i < n) {
        if (isAsciiDigit(s[i])) {
            out += s[i++];
            mantissaDigits = true;
        } else if (s[i] == QLatin1Char(',') && mantissaDigits) {
            ++i; // a grouping comma, anywhere behind the first digit
        } else {
            break;
        }
    }
    if (i < n && s[i] == QLatin1Char('.')) {
        out += s[i++];
        while (i < n && isAsciiDigit(s[i])) {
            out += s[i++];
            mantissaDigits = true;
        }
    }
    if (!mantissaDigits)
        return std::nullopt;

    if (i < n && (s[i] == QLatin1Char('e') || s[i] == QLatin1Char('E'))) {
        out += QLatin1Char('e');
        ++i;
        if (i < n && (s[i] == QLatin1Char('+') || s[i] == QLatin1Char('-')))
            out += s[i++];
        bool exponentDigits = false;
        while (i < n && isAsciiDigit(s[i])) {
            out += s[i++];
            exponentDigits = true;
        }
        if (!exponentDigits)
            return std::nullopt;
    }
    if (i != n)
        return std::nullopt;
    return out;
}

// The common case of a cell or token: a few plain digits, perhaps signed and
// with white space around. Nothing when the text is of any other form.
std::optional<double> plainDigits(const QString& text)
{
    const QStringView s = numberView(text);
    qsizetype begin = 0;
    const qsizetype end = s.size();
    bool negative = false;
    if (begin < end && (s[begin] == QLatin1Char('-') || s[begin] == QLatin1Char('+')))
        negative = s[begin++] == QLatin1Char('-');
    if (begin == end || end - begin > 15)
        return std::nullopt;
    qint64 value = 0;
    for (qsizetype i = begin; i < end; ++i) {
        if (!isAsciiDigit(s[i]))
            return std::nullopt;
        value = value * 10 + (s[i].unicode() - '0');
    }
    return negative ? -double(value) : double(value);
}

// Years written with two digits fall into 1930 to 2029.
int fullYear(int year, qsizetype digits)
{
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

} // namespace

QStringView trimView(QStringView text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == QLatin1Char(' '))
        ++begin;
    while (end > begin && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.sliced(begin, end - begin);
}

QString trim(const QString& text)
{
    const QStringView trimmed = trimView(text);
    return trimmed.size() == text.size() ? text : trimmed.toString();
}

QList<QStringView> splitView(QStringView text, QStringView separator)
{
    if (text.isEmpty())
        return {};
    return text.split(separator, Qt::KeepEmptyParts, Qt::CaseSensitive);
}

QStringList split(const QString& text, const QString& separator)
{
    if (text.isEmpty())
        return {};
    return text.split(separator, Qt::KeepEmptyParts, Qt::CaseSensitive);
}

std::optional<double> toNumber(const QString& text)
{
    if (const std::optional<double> digits = plainDigits(text))
        return digits;
    const std::optional<QString> plain = plainNumberText(text);
    if (!plain)
        return std::nullopt;
    bool ok = false;
    const double value = plain->toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

bool isNumeric(const QString& text)
{
    return toNumber(text).has_value();
}

std::optional<qint32> toWhole(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double nearest = std::nearbyint(value); // the default rounding: halves to even
    if (nearest < double(std::numeric_limits<qint32>::min())
        || nearest > double(std::numeric_limits<qint32>::max()))
        return std::nullopt;
    return static_cast<qint32>(nearest);
}

std::optional<qint32> toWhole(const QString& text)
{
    const std::optional<double> value = toNumber(text);
    if (!value)
        return std::nullopt;
    return toWhole(*value);
}

QString format00(double value)
{
    const double rounded = std::round(value); // halves away from zero
    if (rounded == 0.0)
        return QStringLiteral("00");
    if (std::fabs(rounded) < 1e9) {
        // Whole numbers of up to nine digits, written without the general
        // number formatting.
        char16_t digits[11];
        qsizetype at = 11;
        auto magnitude = qint32(std::fabs(rounded));
        while (magnitude > 0) {
            digits[--at] = char16_t(u'0' + magnitude % 10);
            magnitude /= 10;
        }
        if (at == 10)
            digits[--at] = u'0';
        if (rounded < 0)
            digits[--at] = u'-';
        return QString(reinterpret_cast<const QChar*>(digits + at), 11 - at);
    }
    QString digits = QString::number(std::fabs(rounded), 'f', 0);
    if (digits.size() < 2)
        digits.prepend(QLatin1Char('0'));
    return rounded < 0 ? QLatin1Char('-') + digits : digits;
}

QString format00(const QString& text)
{
    const std::optional<double> value = toNumber(text);
    return value ? format00(*value) : text;
}

QString decimal(qint64 value)
{
    return QString::number(value);
}

bool isDate(const QString& text)
{
    static const QString time = QStringLiteral("(?: +\\d{1,2}:\\d{2}(?::\\d{2})?)?");
    static const QRegularExpression yearFirst(
        QStringLiteral("^(\\d{4})([-/.])(\\d{1,2})\\2(\\d{1,2})") + time + QStringLiteral("$"));
    static const QRegularExpression chinese(
        QStringLiteral("^(\\d{4})年(\\d{1,2})月(\\d{1,2})日") + time + QStringLiteral("$"));
    static const QRegularExpression yearLast(
        QStringLiteral("^(\\d{1,2})([-/.])(\\d{1,2})\\2(\\d{2}|\\d{4})") + time + QStringLiteral("$"));

    const QString s = trim(text);
    if (const auto m = yearFirst.match(s); m.hasMatch())
        return QDate(m.captured(1).toInt(), m.captured(3).toInt(), m.captured(4).toInt()).isValid();
    if (const auto m = chinese.match(s); m.hasMatch())
        return QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt()).isValid();
    if (const auto m = yearLast.match(s); m.hasMatch()) {
        const int year = fullYear(m.captured(4).toInt(), m.captured(4).size());
        const int first = m.captured(1).toInt();
        const int second = m.captured(3).toInt();
        // Month first as in "3/1/2016", or day first as in "1-3-2016".
        return QDate(year, first, second).isValid() || QDate(year, second, first).isValid();
    }
    return false;
}

QString replaceNoCase(const QString& text, const QString& find, const QString& with)
{
    if (find.isEmpty())
        return text;
    QString result = text;
    result.replace(find, with, Qt::CaseInsensitive);
    return result;
}

qsizetype findNoCase(const QString& text, const QString& what, qsizetype from)
{
    if (from > text.size())
        return -1;
    if (what.isEmpty())
        return from;
    return text.indexOf(what, from, Qt::CaseInsensitive);
}

} // namespace textrules
