#include "forecast/grouptests.h"

#include "platform/textrules.h"

#include <optional>

namespace {

constexpr int positions = 7;

// The blank-separated tokens of a text, one after the other, as views: two
// blanks in a row give an empty token between them, and an empty text gives
// no token at all, as the split rule has it.
class Tokens {
public:
    explicit Tokens(QStringView text) : m_at(text.utf16()), m_end(m_at + text.size()), m_done(text.isEmpty()) {}

    // The next token, or nothing behind the last one.
    std::optional<QStringView> next()
    {
        if (m_done)
            return std::nullopt;
        const char16_t* begin = m_at;
        while (m_at != m_end && *m_at != u' ')
            ++m_at;
        const QStringView token(begin, m_at);
        if (m_at == m_end)
            m_done = true;
        else
            ++m_at;
        return token;
    }

private:
    const char16_t* m_at;
    const char16_t* m_end;
    bool m_done;
};

// The general conversion, for the tokens that are not plain digits.
[[gnu::noinline]] bool convertedValue(QStringView token, qint32& value)
{
    const std::optional<qint32> converted = textrules::toWhole(token.toString());
    value = converted.value_or(0);
    return converted.has_value();
}

// The whole-number value of a token, false when it has none. A token of a
// few plain digits, which is what a group text is made of, is read on the
// spot; any other goes to the general conversion.
inline bool wholeValue(QStringView token, qint32& value)
{
    if (!token.isEmpty() && token.size() <= 9) {
        qint32 digits = 0;
        const char16_t* c = token.utf16();
        const char16_t* end = c + token.size();
        while (c != end && *c >= u'0' && *c <= u'9')
            digits = digits * 10 + (*c++ - u'0');
        if (c == end) {
            value = digits;
            return true;
        }
    }
    return convertedValue(token, value);
}

} // namespace

qint32 CountEvenNumbers(QStringView group)
{
    Tokens tokens(textrules::trimView(group));
    qint32 count = 0;
    for (int i = 0; i < positions; ++i) {
        // Each failed test counts as even: no token, no number, a failed conversion.
        const std::optional<QStringView> token = tokens.next();
        if (!token) {
            ++count;
            continue;
        }
        // A token holds no blank, so trimming it changes nothing.
        qint32 value = 0;
        if (!wholeValue(*token, value) || value % 2 == 0)
            ++count;
    }
    return count;
}

qint32 AverageOfSeven(QStringView group)
{
    Tokens tokens(group);
    qint64 sum = 0;
    for (int i = 0; i < positions; ++i) {
        const std::optional<QStringView> token = tokens.next();
        if (!token)
            break;
        qint32 value = 0;
        if (wholeValue(*token, value))
            sum += value; // an unreadable token adds nothing
    }
    return textrules::toWhole(double(sum) / positions).value_or(0);
}
