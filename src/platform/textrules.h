#pragma once

// The text and number rules that every part of the program shares. Cells,
// settings and result lines are all text, so these few rules decide what a
// number is, how it is written and how texts are cut and compared. Nobody
// rewrites one of them inline: call the rule from here.

#include <QString>
#include <QStringList>

#include <optional>

namespace textrules {

// Removes blanks (code 32) at both ends and nothing else: tabs stay.
QString trim(const QString& text);
// The same, as a view into the text, for passes over long texts.
QStringView trimView(QStringView text);

// Breaks at every occurrence of the literal separator. Two separators in a row
// give an empty token; an empty text gives no tokens at all.
QStringList split(const QString& text, const QString& separator);
// The same, as views into the text, for passes over long texts.
QList<QStringView> splitView(QStringView text, QStringView separator);

// The general number test: white space around (blanks, tabs, line breaks, the
// no-break and the ideographic space: Unicode's White_Space), a sign,
// grouping commas in the whole part, a decimal point and an exponent are all
// taken. White space inside the number is not. The conversions below and
// format00 rest on this test.
bool isNumeric(const QString& text);

// The value of a numeric text; nothing for a text that fails isNumeric or does
// not fit a double.
std::optional<double> toNumber(const QString& text);

// Whole-number conversion to 32 bits: the nearest whole number, a half going
// to the even neighbour. Nothing on a non-numeric text or on overflow.
std::optional<qint32> toWhole(const QString& text);
std::optional<qint32> toWhole(double value);

// Format "00": rounds halves away from zero, writes at least two digits and a
// leading "-" for a negative value. A text that is not numeric stays as it is.
QString format00(double value);
QString format00(const QString& text);

// Plain decimal text of a whole number, no padding.
QString decimal(qint64 value);

// True for a calendar date in the usual written forms: "2016-03-01",
// "2016/3/1", "2016.3.1", "2016年3月1日", "3/1/2016", "1-3-2016", each with an
// optional time of day behind it.
bool isDate(const QString& text);

// Replaces every occurrence of `find`, compared without regard to case. An
// empty `find` leaves the text as it is.
QString replaceNoCase(const QString& text, const QString& find, const QString& with);

// Position of the first occurrence of `what` at or after `from`, compared
// without regard to case; -1 when absent. An empty `what` is found at `from`.
qsizetype findNoCase(const QString& text, const QString& what, qsizetype from = 0);

inline bool containsNoCase(const QString& text, const QString& what)
{
    return findNoCase(text, what) >= 0;
}

} // namespace textrules
