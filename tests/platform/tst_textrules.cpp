#include "platform/textrules.h"

#include <QtTest>

#include <optional>

using namespace textrules;

Q_DECLARE_METATYPE(std::optional<qint32>)
Q_DECLARE_METATYPE(std::optional<double>)

class TextRulesTest : public QObject {
    Q_OBJECT

private slots:
    void trimRemovesBlanksOnly_data();
    void trimRemovesBlanksOnly();
    void splitKeepsEmptyTokens_data();
    void splitKeepsEmptyTokens();
    void numericTest_data();
    void numericTest();
    void wholeNumberConversion_data();
    void wholeNumberConversion();
    void wholeNumberOfFloatingPoint();
    void format00_data();
    void format00();
    void dateTest_data();
    void dateTest();
    void replaceIgnoresCase_data();
    void replaceIgnoresCase();
    void findIgnoresCase_data();
    void findIgnoresCase();
};

void TextRulesTest::trimRemovesBlanksOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("blanks around") << "  2007024 " << "2007024";
    QTest::newRow("tab stays") << "\t08 " << "\t08";
    QTest::newRow("only blanks") << "   " << "";
    QTest::newRow("empty") << "" << "";
}

void TextRulesTest::trimRemovesBlanksOnly()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QCOMPARE(trim(text), trimmed);
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

void TextRulesTest::numericTest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<double>>("value");
    const std::optional<double> none;
    QTest::newRow("digits") << "12" << std::optional<double>(12);
    QTest::newRow("blanks around") << "  12 " << std::optional<double>(12);
    QTest::newRow("minus") << "-3" << std::optional<double>(-3);
    QTest::newRow("grouping comma") << "1,000" << std::optional<double>(1000);
    QTest::newRow("decimal point") << "1.5" << std::optional<double>(1.5);
    QTest::newRow("point first") << ".5" << std::optional<double>(0.5);
    QTest::newRow("exponent") << "1e3" << std::optional<double>(1000);
    QTest::newRow("signed exponent") << "25E-1" << std::optional<double>(2.5);
    QTest::newRow("long digit string") << "0809172527320615" << std::optional<double>(809172527320615.0);
    QTest::newRow("nine digits") << " 999999999 " << std::optional<double>(999999999.0);
    QTest::newRow("ten digits") << "9999999999" << std::optional<double>(9999999999.0);
    QTest::newRow("nine digits and a letter") << "12345678a" << none;
    QTest::newRow("empty") << "" << none;
    QTest::newRow("digit and letter") << "1a" << none;
    QTest::newRow("inner blank") << "08 09" << none;
    QTest::newRow("tab before") << "\t1" << none;
    QTest::newRow("comma first") << ",5" << none;
    QTest::newRow("exponent without digits") << "1e" << none;
    QTest::newRow("too large for a double") << "1e400" << none;
}

void TextRulesTest::numericTest()
{
    QFETCH(QString, text);
    QFETCH(std::optional<double>, value);
    QCOMPARE(isNumeric(text), value.has_value());
    QCOMPARE(toNumber(text), value);
}

void TextRulesTest::wholeNumberConversion_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<qint32>>("value");
    const std::optional<qint32> fails;
    QTest::newRow("plain") << "17" << std::optional<qint32>(17);
    QTest::newRow("blanks") << " 7 " << std::optional<qint32>(7);
    QTest::newRow("half to even, down") << "2.5" << std::optional<qint32>(2);
    QTest::newRow("half to even, up") << "3.5" << std::optional<qint32>(4);
    QTest::newRow("half of zero") << "0.5" << std::optional<qint32>(0);
    QTest::newRow("negative half") << "-2.5" << std::optional<qint32>(-2);
    QTest::newRow("exponent") << "1e3" << std::optional<qint32>(1000);
    QTest::newRow("largest") << "2147483647" << std::optional<qint32>(2147483647);
    QTest::newRow("smallest") << "-2147483648" << std::optional<qint32>(-2147483647 - 1);
    QTest::newRow("overflow") << "2147483648" << fails;
    QTest::newRow("overflow by rounding") << "2147483647.5" << fails;
    QTest::newRow("not a number") << "abc" << fails;
}

void TextRulesTest::wholeNumberConversion()
{
    QFETCH(QString, text);
    QFETCH(std::optional<qint32>, value);
    QCOMPARE(toWhole(text), value);
}

void TextRulesTest::wholeNumberOfFloatingPoint()
{
    QCOMPARE(toWhole(124.0 / 7.0), std::optional<qint32>(18));
    QCOMPARE(toWhole(10.5), std::optional<qint32>(10));
    QCOMPARE(toWhole(11.5), std::optional<qint32>(12));
    QCOMPARE(toWhole(3e9), std::optional<qint32>());
    QCOMPARE(toWhole(std::numeric_limits<double>::quiet_NaN()), std::optional<qint32>());
}

void TextRulesTest::format00_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("formatted");
    QTest::newRow("one digit") << "7" << "07";
    QTest::newRow("three digits") << "100" << "100";
    QTest::newRow("half away from zero") << "3.5" << "04";
    QTest::newRow("half of eight") << "8.5" << "09";
    QTest::newRow("half of two, not to even") << "2.5" << "03";
    QTest::newRow("decimal") << "2.6" << "03";
    QTest::newRow("negative") << "-3" << "-03";
    QTest::newRow("negative half") << "-2.5" << "-03";
    QTest::newRow("blanks around a number") << " 5 " << "05";
    QTest::newRow("not numeric stays") << "ab" << "ab";
    QTest::newRow("blank stays") << " " << " ";
    QTest::newRow("nine digits") << "999999999" << "999999999";
    QTest::newRow("nine digits rounding up to ten") << "999999999.5" << "1000000000";
    QTest::newRow("ten digits") << "1234567890" << "1234567890";
    QTest::newRow("negative nine digits") << "-123456789" << "-123456789";
    QTest::newRow("negative below one") << "-0.6" << "-01";
    QTest::newRow("negative half to zero") << "-0.4" << "00";
}

void TextRulesTest::format00()
{
    QFETCH(QString, text);
    QFETCH(QString, formatted);
    QCOMPARE(textrules::format00(text), formatted);
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
