#include "history/drawentry.h"
#include "history/drawhistory.h"
#include "history/insertline.h"
#include "historyrows.h"

#include <QtTest>

class InsertLineTest : public QObject {
    Q_OBJECT

private slots:
    void oneLine_data();
    void oneLine();
    void linesEndAtCrLfOnly_data();
    void linesEndAtCrLfOnly();
    void typedDrawCheck_data();
    void typedDrawCheck();
    void typedGroupText_data();
    void typedGroupText();
};

void InsertLineTest::oneLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("row"); // empty: nothing added
    QTest::newRow("two blues") << "2007024 08 09 17 25 27 32 06 15" << "2007024 | 08 09 17 25 27 32 06 15";
    QTest::newRow("one blue gets 00") << "2007024 08 09 17 25 27 32 06" << "2007024 | 08 09 17 25 27 32 06 00";
    QTest::newRow("commas") << "2007024,08,09,17,25,27,32,06,15" << "2007024 | 08 09 17 25 27 32 06 15";
    QTest::newRow("comma and blank: an empty red") << "2007024, 08 09 17 25 27 32 06"
                                                   << "2007024 | 00 08 09 17 25 27 32 06";
    QTest::newRow("reds sorted, blues in place") << "2007024 32 27 25 17 09 08 15 06"
                                                 << "2007024 | 08 09 17 25 27 32 15 06";
    QTest::newRow("one and three digits") << "2007024 7 100 11 9 33 2 6 1" << "2007024 | 02 07 09 100 11 33 06 01";
    QTest::newRow("a red not a number: 00") << "2007024 08 09 x 25 27 32 06 15" << "2007024 | 00 08 09 25 27 32 06 15";
    QTest::newRow("a blue not a number stays") << "2007024 08 09 17 25 27 32 ab 15"
                                               << "2007024 | 08 09 17 25 27 32 ab 15";
    QTest::newRow("a red's half to even") << "2007024 2.5 09 17 25 27 32 06 15" << "2007024 | 02 09 17 25 27 32 06 15";
    QTest::newRow("two blanks before the blue") << "2007024 08 09 17 25 27 32  06" << "2007024 | 08 09 17 25 27 32 06";
    QTest::newRow("blanks around the line") << "   2007024 08 09 17 25 27 32 06 15  "
                                            << "2007024 | 08 09 17 25 27 32 06 15";
    QTest::newRow("no blue: seven tokens dropped") << "2007024 08 09 17 25 27 32" << "";
    QTest::newRow("ten tokens dropped") << "2007024 08 09 17 25 27 32 06 15 16" << "";
    QTest::newRow("tabs part nothing") << "2007024\t08\t09\t17\t25\t27\t32\t06\t15" << "";
    QTest::newRow("blank line") << "     " << "";
    QTest::newRow("the issue is not checked") << "abc 08 09 17 25 27 32 06 15" << "abc | 08 09 17 25 27 32 06 15";
}

void InsertLineTest::oneLine()
{
    QFETCH(QString, line);
    QFETCH(QString, row);
    DrawHistory history;
    导入一行(history, line);
    QCOMPARE(rowsOf(history), row.isEmpty() ? QStringList() : QStringList{row});
    QVERIFY(!line.contains(QLatin1Char(','))); // in the caller's text as well
    if (!row.isEmpty()) {
        QCOMPARE(history.key(0), QStringLiteral("A") + history.text(0));
        QCOMPARE(history.subItem(0, 2), QString()); // the third field starts empty
    }
}

void InsertLineTest::linesEndAtCrLfOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("rows");
    const auto row = [](const char* issue) { return QString::fromLatin1(issue) + " | 01 02 03 04 05 06 07 00"; };
    QTest::newRow("CR LF lines, newest first, stay in that order")
        << "2007026 01 02 03 04 05 06 07\r\n2007025 01 02 03 04 05 06 07\r\n2007024 01 02 03 04 05 06 07\r\n"
        << QStringList{row("2007026"), row("2007025"), row("2007024")};
    QTest::newRow("a lone LF or CR ends no line")
        << "2007024 01 02 03 04 05 06 07\n2007025 01 02 03 04 05 06 07\r2007026 01 02 03 04 05 06 07" << QStringList{};
    QTest::newRow("blank lines between") << "\r\n  \r\n2007024 01 02 03 04 05 06 07\r\n\r\n"
                                         << QStringList{row("2007024")};
    QTest::newRow("an issue already there is never updated")
        << "2007024 01 02 03 04 05 06 07\r\n2007025 01 02 03 04 05 06 07\r\n2007024 11 12 13 14 15 16 08 09"
        << QStringList{row("2007024"), row("2007025")};
}

void InsertLineTest::linesEndAtCrLfOnly()
{
    QFETCH(QString, text);
    QFETCH(QStringList, rows);
    DrawHistory history;
    importLines(history, text);
    QCOMPARE(rowsOf(history), rows);
}

void InsertLineTest::typedDrawCheck_data()
{
    QTest::addColumn<QString>("issue");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<int>("check");
    const int complete = int(drawentry::Check::Complete);
    const int incomplete = int(drawentry::Check::Incomplete);
    const int notNumeric = int(drawentry::Check::NotNumeric);
    QTest::newRow("good") << "2007024" << "08 09 17 25 27 32 06 15" << complete;
    QTest::newRow("blank issue") << "   " << "08 09" << incomplete;
    QTest::newRow("blank numbers") << "2007024" << "  " << incomplete;
    QTest::newRow("letters in numbers") << "2007024" << "08 09 ab" << notNumeric;
    QTest::newRow("letters in issue") << "2007a" << "08 09" << notNumeric;
    QTest::newRow("grouping comma passes as an issue") << "1,000" << "08" << complete;
    QTest::newRow("two blanks pass") << "2007024" << "08  09" << complete;
    QTest::newRow("a tab is no blank") << "2007024" << "08\t09" << notNumeric;
}

void InsertLineTest::typedDrawCheck()
{
    QFETCH(QString, issue);
    QFETCH(QString, numbers);
    QFETCH(int, check);
    QCOMPARE(int(drawentry::check(issue, numbers)), check);
}

void InsertLineTest::typedGroupText_data()
{
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<QString>("group");
    QTest::newRow("reds sorted, blues in place") << "8 32 17 25 27 09 6 15" << "08 09 17 25 27 32 06 15";
    QTest::newRow("nine numbers stay nine") << "8 9 17 25 27 32 6 15 3" << "08 09 17 25 27 32 06 15 03";
    QTest::newRow("seven numbers stay seven") << "8 9 17 25 27 32 6" << "08 09 17 25 27 32 06";
    QTest::newRow("two blanks give a 00 among the reds") << "08  09 17 25 27 32 06 15"
                                                         << "00 08 09 17 25 27 32 06 15";
    QTest::newRow("five numbers: the spare 0 sorts first") << "5 4 3 2 1" << "00 01 02 03 04 05";
    QTest::newRow("four numbers: unsorted, spare 0 last") << "4 3 2 1" << "04 03 02 01 00";
    QTest::newRow("blanks around") << "  08 09 17 25 27 32 06 15 " << "08 09 17 25 27 32 06 15";
    QTest::newRow("decimal rounds half to even") << "2.5 09 17 25 27 32 3.5 15" << "02 09 17 25 27 32 04 15";
}

void InsertLineTest::typedGroupText()
{
    QFETCH(QString, numbers);
    QFETCH(QString, group);
    QCOMPARE(drawentry::groupText(numbers), group);
}

QTEST_GUILESS_MAIN(InsertLineTest)
#include "tst_insertline.moc"
