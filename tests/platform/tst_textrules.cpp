#include "platform/textrules.h"

#include <QtTest>

#include <optional>

using namespace textrules;

using Number = std::optional<double>;
using Whole = std::optional<qint32>;
Q_DECLARE_METATYPE(Number)
Q_DECLARE_METATYPE(Whole)

class TextRulesTest : public QObject {
    Q_OBJECT

private slots:
    void trimAndFormat00_data();
    void trimAndFormat00();
    void splitKeepsEmptyTokens_data();
    void splitKeepsEmptyTokens();
    void numbers_data();
    void numbers();
    void whiteSpaceAroundOnly();
    void wholeNumberOfFloatingPoint();
    void dateTest_data();
    void dateTest();
    void replaceIgnoresCase_data();
    void replaceIgnoresCase();
    void findIgnoresCase_data();
    void findIgnoresCase();
};

void TextRulesTest::trimAndFormat00_data()
{
    QTest::addColumn<bool>("trim"); // else format00
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("trim: blanks around") << true << "  2007024 " << "2007024";
    QTest::newRow("trim: a tab stays") << true << "\t08 " << "\t08";
    QTest::newRow("trim: only blanks") << true << "   " << "";
    QTest::newRow("trim: empty") << true << "" << "";
    QTest::newRow("one digit") << false << "7" << "07";
    QTest::newRow("three digits") << false << "100" << "100";
    QTest::newRow("half away from zero") << false << "3.5" << "04";
    QTest::newRow("half of two, not to even") << false << "2.5" << "03";
    QTest::newRow("negative half") << false << "-2.5" << "-03";
    QTest::newRow("white space around a number") << false << "\t5\r\n" << "05";
    QTest::newRow("not numeric stays") << false << "ab" << "ab";
    QTest::newRow("blank stays") << false << " " << " ";
    QTest::newRow("nine digits") << false << "999999999" << "999999999";
    QTest::newRow("nine digits rounding up to ten") << false << "999999999.5" << "1000000000";
    QTest::newRow("ten digits") << false << "1234567890" << "1234567890";
    QTest::newRow("negative nine digits") << false << "-123456789" << "-123456789";
    QTest::newRow("negative below one") << false << "-0.6" << "-01";
    QTest::newRow("negative half to zero") << false << "-0.4" << "00";
}

void TextRulesTest::trimAndFormat00()
{
    QFETCH(bool, trim);
    QFETCH(QString, text);
    QFETCH(QString, result);
    QCOMPARE(trim ? textrules::trim(text) : textrules::format00(text), result);
}

void TextRulesTest::splitKeepsEmptyTokens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QStringList>("tokens");
    QTest::newRow("single blanks") << "08 09 17" << " " << QStringList{"08", "09", "17"};
    QTest::newRow("two blanks give an empty token") << "32  06" << " " << QStringList{"32", "", "06"};
    QTest::newRow("empty text gives no tokens") << "" << " " << QStringList{};
    QTest::newRow("a lone blank") << " " << " " << QStringList{"", ""};
    QTest::newRow("file fields") << "2007024*=*08 09*=*" << "*=*" << QStringList{"2007024", "08 09", ""};
    QTest::newRow("CR LF only") << "a\nb\r\nc" << "\r\n" << QStringList{"a\nb", "c"};
}

void TextRulesTest::splitKeepsEmptyTokens()
{
    QFETCH(QString, text);
    QFETCH(QString, separator);
    QFETCH(QStringList, tokens);
    QCOMPARE(split(text, separator), tokens);
}

void TextRulesTest::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Number>("number"); // the numeric test and the value
    QTest::addColumn<Whole>("whole"); // the whole-number conversion
    const Number none;
    const Whole fails;
    QTest::newRow("minus") << "-3" << Number(-3) << Whole(-3);
    QTest::newRow("grouping comma") << "1,000" << Number(1000) << Whole(1000);
    QTest::newRow("point first, half of zero") << ".5" << Number(0.5) << Whole(0);
    QTest::newRow("half to even, down") << "2.5" << Number(2.5) << Whole(2);
    QTest::newRow("half to even, up") << "3.5" << Number(3.5) << Whole(4);
    QTest::newRow("negative half") << "-2.5" << Number(-2.5) << Whole(-2);
    QTest::newRow("exponent") << "1e3" << Number(1000) << Whole(1000);
    QTest::newRow("signed exponent") << "25E-1" << Number(2.5) << Whole(2);
    QTest::newRow("long digit string") << "0809172527320615" << Number(809172527320615.0) << fails;
    QTest::newRow("ten digits") << "9999999999" << Number(9999999999.0) << fails;
    QTest::newRow("largest") << "2147483647" << Number(2147483647.0) << Whole(2147483647);
    QTest::newRow("smallest") << "-2147483648" << Number(-2147483648.0) << Whole(-2147483647 - 1);
    QTest::newRow("overflow") << "2147483648" << Number(2147483648.0) << fails;
    QTest::newRow("overflow by rounding") << "2147483647.5" << Number(2147483647.5) << fails;
    QTest::newRow("nine digits and a letter") << "12345678a" << none << fails;
    QTest::newRow("empty") << "" << none << fails;
    // White space around the number, of every kind, never inside it.
    const std::pair<const char*, QString> spaces[] = {
        {"blank", " "}, {"tab", "\t"}, {"LF", "\n"}, {"CR", "\r"}, {"VT", "\v"}, {"FF", "\f"},
        {"no-break space", QStringLiteral("\u00A0")}, {"ideographic space", QStringLiteral("\u3000")}};
    for (const auto& [kind, space] : spaces) {
        QTest::addRow("%s before", kind) << space + "12" << Number(12) << Whole(12);
        QTest::addRow("%s after", kind) << "2.5" + space + space << Number(2.5) << Whole(2);
        QTest::addRow("%s inside", kind) << "1" + space + "2" << none << fails;
    }
    QTest::newRow("zero-width space is no white space") << QStringLiteral("\u200B1") << none << fails;
    QTest::newRow("comma first") << ",5" << none << fails;
    QTest::newRow("exponent without digits") << "1e" << none << fails;
    QTest::newRow("too large for a double") << "1e400" << none << fails;
}

void TextRulesTest::numbers()
{
    QFETCH(QString, text);
    QFETCH(Number, number);
    QFETCH(Whole, whole);
    QCOMPARE(isNumeric(text), number.has_value());
    QCOMPARE(toNumber(text), number);
    QCOMPARE(toWhole(text), whole);
}

void TextRulesTest::whiteSpaceAroundOnly()
{
    // Unicode's White_Space written out, and characters that only look blank.
    const QString space = QStringLiteral("\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005"
                                         "\u2006\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000");
    const QString other = QStringLiteral("\u0001\u001C\u200B\u2060\uFEFF\u00AD\u180Ex");
    const QStringList cores{"12", "-3", "1,000", ".5", "25E-1", "1e", "", "x"};
    QRandomGenerator random(17);
    for (int i = 0; i < 5000; ++i) {
        // Around the number, or inside it where `at` cuts it in two.
        const QString core = cores[random.bounded(int(cores.size()))];
        const qsizetype at = random.bounded(int(core.size()) + 1);
        const bool white = random.bounded(4) != 0;
        const QString& kinds = white ? space : other;
        const QString pad(random.bounded(1, 3), kinds[random.bounded(int(kinds.size()))]);
        const Number expected = white && (at == 0 || at == core.size()) ? toNumber(core) : Number();
        QCOMPARE(toNumber(core.left(at) + pad + core.mid(at)), expected);
    }
}

void TextRulesTest::wholeNumberOfFloatingPoint()
{
    // Rounding and overflow are the numbers table's; no text gives these.
    QCOMPARE(toWhole(124.0 / 7.0), Whole(18));
    QCOMPARE(toWhole(std::numeric_limits<double>::quiet_NaN()), Whole());
}

void TextRulesTest::dateTest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("date");
    QTest::newRow("iso") << "2016-03-01" << true;
    QTest::newRow("slashes") << "2016/03/01" << true;
    QTest::newRow("chinese") << "2016年3月1日" << true;
    QTest::newRow("month first") << "3/1/2016" << true;
    QTest::newRow("day first") << "25/12/2016" << true;
    QTest::newRow("two-digit year") << "3/1/16" << true;
    QTest::newRow("with a time") << "2016-03-01 20:30" << true;
    QTest::newRow("leap day") << "2016-02-29" << true;
    QTest::newRow("no leap day") << "2015-02-29" << false;
    QTest::newRow("no such day") << "2016-02-30" << false;
    QTest::newRow("mixed separators") << "2016-03/01" << false;
    QTest::newRow("neither order") << "13/25/2016" << false;
    QTest::newRow("issue number") << "2016023" << false;
    QTest::newRow("heading") << "开奖日期" << false;
}

void TextRulesTest::dateTest()
{
    QFETCH(QString, text);
    QFETCH(bool, date);
    QCOMPARE(isDate(text), date);
}

void TextRulesTest::replaceIgnoresCase_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("with");
    QTest::addColumn<QString>("result");
    QTest::newRow("every occurrence") << "01 02 03 02 " << "02" << "" << "01  03  ";
    QTest::newRow("case ignored") << "AbcABC" << "b" << "x" << "AxcAxC";
    QTest::newRow("two blanks to one") << "01  03   04" << "  " << " " << "01 03  04";
    QTest::newRow("empty find changes nothing") << "abc" << "" << "x" << "abc";
}

void TextRulesTest::replaceIgnoresCase()
{
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(QString, with);
    QFETCH(QString, result);
    QCOMPARE(replaceNoCase(text, find, with), result);
}

void TextRulesTest::findIgnoresCase_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("position");
    QTest::newRow("found") << "Hello" << "LL" << 0 << 2;
    QTest::newRow("from a later start") << "ab ab" << "AB" << 1 << 3;
    QTest::newRow("absent") << "03 06 09" << "34" << 0 << -1;
    QTest::newRow("empty is found at the start") << "abc" << "" << 0 << 0;
}

void TextRulesTest::findIgnoresCase()
{
    QFETCH(QString, text);
    QFETCH(QString, what);
    QFETCH(int, from);
    QFETCH(int, position);
    QCOMPARE(findNoCase(text, what, from), qsizetype(position));
    QCOMPARE(containsNoCase(text, what), findNoCase(text, what) >= 0);
}

QTEST_GUILESS_MAIN(TextRulesTest)
#include "tst_textrules.moc"
