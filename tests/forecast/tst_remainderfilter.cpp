#include "forecast/remainderfilter.h"
#include "platform/runtimefailure.h"

#include <QtTest>

namespace {

const QString newestRemainders = QStringLiteral("2 0 2 1 0 2"); // of 08 09 17 25 27 32

} // namespace

class RemainderFilterTest : public QObject {
    Q_OBJECT

private slots:
    void remainders_data();
    void remainders();
    void lineTest_data();
    void lineTest();
};

void RemainderFilterTest::remainders_data()
{
    QTest::addColumn<QString>("reds");
    QTest::addColumn<QString>("remainders");
    QTest::newRow("the newest draw") << "08 09 17 25 27 32" << newestRemainders;
    QTest::newRow("empty tokens are passed over") << "03  04" << "0 1";
    QTest::newRow("the whole part is taken") << "5.9 -4" << "2 -1";
}

void RemainderFilterTest::remainders()
{
    QFETCH(QString, reds);
    QFETCH(QString, remainders);
    QCOMPARE(RemainderFilter::remaindersOf(reds), remainders);
    try {
        RemainderFilter::remaindersOf(QStringLiteral("08 x9"));
        QFAIL("a token that isn't a number passed");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.code(), RuntimeError::TypeMismatch);
    }
    const RemainderFilter filter(newestRemainders);
    QCOMPARE(filter.RemainderList0, QStringLiteral("03 06 09 12 15 18 21 24 27 30 33"));
    QCOMPARE(filter.RemainderList1, QStringLiteral("01 04 07 10 13 16 19 22 25 28 31"));
    QCOMPARE(filter.RemainderList2, QStringLiteral("02 05 08 11 14 17 20 23 26 29 32"));
    // Five remainders: a line is looked at only as far as it passes.
    QCOMPARE(RemainderFilter(QStringLiteral("2 0 2 1 0")).号码是否合格(QStringLiteral("01 03 05 07 09 11")), false);
}

void RemainderFilterTest::lineTest_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<bool>("passes");
    QTest::newRow("every remainder repeats") << "02 03 05 07 09 11" << true;
    QTest::newRow("first position differs") << "01 03 05 07 09 11" << false;
    QTest::newRow("last position differs") << "02 03 05 07 09 10" << false;
    QTest::newRow("seven tokens") << "02 03 05 07 09 11 06" << false;
    QTest::newRow("two blanks between numbers make seven tokens") << "02  03 05 07 09 11" << false;
    QTest::newRow("five numbers and an empty token") << "02  05 07 09 11" << true;
    QTest::newRow("a substring: 3 is in 03, 1 is in 31") << "2 3 5 1 9 11" << true;
    QTest::newRow("34 is nowhere") << "02 34 05 07 09 11" << false;
    QTest::newRow("033 is nowhere") << "02 033 05 07 09 11" << false;
    QTest::newRow("the same numbers out of order") << "03 02 05 07 09 11" << false;
}

void RemainderFilterTest::lineTest()
{
    QFETCH(QString, group);
    QFETCH(bool, passes);
    QCOMPARE(RemainderFilter(newestRemainders).号码是否合格(group), passes);
}

QTEST_APPLESS_MAIN(RemainderFilterTest)

#include "tst_remainderfilter.moc"
