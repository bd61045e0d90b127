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
    QTest::newRow("history row: the first blue counts, the second not") << "08 09 17 25 27 32 06 16" << 3;
    QTest::newRow("result line with blue: blue unseen, empty token even") << "08 09 17 25 27 32  06" << 3;
    QTest::newRow("result line without blue: missing token even") << "08 09 17 25 27 32" << 3;
    QTest::newRow("six even reds") << "02 04 06 08 10 12" << 7;
    QTest::newRow("blanks around are trimmed first") << "  01 03 05 07 09 11 13  " << 0;
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
    QTest::newRow("history row: reds and the first blue") << "08 09 17 25 27 32 06 15" << 18;
    QTest::newRow("result line: six reds over seven") << "08 09 17 25 27 32  06" << 17;
    QTest::newRow("sum 66 stays below 10") << "01 02 03 04 05 51" << 9;
    QTest::newRow("sum 67 is the lowest to reach 10") << "01 02 03 04 05 52" << 10;
    QTest::newRow("sum 157 reaches 22") << "22 23 24 25 30 33" << 22;
    QTest::newRow("sum 158 goes above 22") << "22 23 24 25 31 33" << 23;
}

void GroupTestsTest::averageOfSeven()
{
    QFETCH(QString, group);
    QFETCH(int, average);
    QCOMPARE(AverageOfSeven(group), average);
}

QTEST_GUILESS_MAIN(GroupTestsTest)
#include "tst_grouptests.moc"
