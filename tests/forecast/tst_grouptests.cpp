#include "forecast/grouptests.h"

#include <QtTest>

class GroupTestsTest : public QObject {
    Q_OBJECT

private slots:
    void countEvenNumbers_data();
    void countEvenNumbers();
    void averageOfSeven_data();
    void averageOfSeven();
};

void GroupTestsTest::countEvenNumbers_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("even");
    QTest::newRow("history row counts the first blue") << "08 09 17 25 27 32 06 15" << 3;
    QTest::newRow("second blue is never looked at") << "01 03 05 07 09 11 13 16" << 0;
    QTest::newRow("result line with blue: blue unseen, empty token even") << "08 09 17 25 27 32  06" << 3;
    QTest::newRow("result line without blue: missing token even") << "08 09 17 25 27 32" << 3;
    QTest::newRow("six odd reds on a result line") << "01 03 05 07 09 11" << 1;
    QTest::newRow("six even reds on a result line") << "02 04 06 08 10 12" << 7;
    QTest::newRow("six tokens with three even") << "02 04 06 07 09 11" << 4;
    QTest::newRow("letters count as even") << "ab 03 05 07 09 11 13" << 1;
    QTest::newRow("blanks around are trimmed first") << "  01 03 05 07 09 11 13  " << 0;
    QTest::newRow("two blanks shift the rest") << "01  03 05 07 09 11 13" << 1;
    QTest::newRow("empty text") << "" << 7;
}

void GroupTestsTest::countEvenNumbers()
{
    QFETCH(QString, group);
    QFETCH(int, even);
    QCOMPARE(CountEvenNumbers(group), even);
}

void GroupTestsTest::averageOfSeven_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("average");
    QTest::newRow("history row: reds and first blue") << "08 09 17 25 27 32 06 15" << 18;
    QTest::newRow("result line: six reds over seven") << "08 09 17 25 27 32  06" << 17;
    QTest::newRow("sum 67 is the lowest to reach 10") << "01 02 03 04 05 52" << 10;
    QTest::newRow("sum 66 stays below 10") << "01 02 03 04 05 51" << 9;
    QTest::newRow("sum 157 reaches 22") << "22 23 24 25 30 33" << 22;
    QTest::newRow("sum 158 goes above 22") << "22 23 24 25 31 33" << 23;
    QTest::newRow("unreadable tokens add nothing") << "ab 07 07 07 07 07 07" << 6;
    QTest::newRow("empty") << "" << 0;
}

void GroupTestsTest::averageOfSeven()
{
    QFETCH(QString, group);
    QFETCH(int, average);
    QCOMPARE(AverageOfSeven(group), average);
}

QTEST_GUILESS_MAIN(GroupTestsTest)
#include "tst_grouptests.moc"
