#include "forecast/remainderfilter.h"
#include "history/drawhistory.h"
#include "platform/runtimefailure.h"
#include "platform/textrules.h"

#include <QtTest>

namespace {

void addDraw(DrawHistory& history, const QString& issue, const QString& group)
{
    history.add(DrawHistory::keyOf(issue), issue);
    history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
}

RuntimeError::Code failureOf(const std::function<void()>& routine)
{
    try {
        routine();
    } catch (const RuntimeError& error) {
        return error.code();
    }
    QTest::qFail("no failure", __FILE__, __LINE__);
    return RuntimeError::Overflow;
}

} // namespace

class RemainderFilterTest : public QObject {
    Q_OBJECT

private slots:
    void newestDrawComesFirstAndStaysSo();
    void emptyHistoryFails();
    void remainders_data();
    void remainders();
    void listsOfTheThreeRemainders();
    void lineTest_data();
    void lineTest();
    void shortRemaindersFailOnlyWhereTheyAreReached();
    void filterKeepsOrderAndDuplicates();
};

void RemainderFilterTest::newestDrawComesFirstAndStaysSo()
{
    DrawHistory history;
    addDraw(history, "2007023", "01 04 07 10 13 16 02 00");
    addDraw(history, "2007025", "08 09 17 25 27 32 06 15");
    addDraw(history, "2007024", "02 05 08 11 14 17 03 00");
    QCOMPARE(RemainderFilter::newestReds(history), QStringLiteral("08 09 17 25 27 32"));
    QCOMPARE(history.text(0), QStringLiteral("2007025"));
    QCOMPARE(history.text(2), QStringLiteral("2007023"));
    QCOMPARE(history.SortOrder(), 1);
    QCOMPARE(history.Sorted(), false);
    // A second opening flips the direction back first and sorts the same way.
    QCOMPARE(RemainderFilter::newestReds(history), QStringLiteral("08 09 17 25 27 32"));
}

void RemainderFilterTest::emptyHistoryFails()
{
    DrawHistory history;
    QCOMPARE(failureOf([&] { RemainderFilter::newestReds(history); }), RuntimeError::IndexOutOfBounds);
}

void RemainderFilterTest::remainders_data()
{
    QTest::addColumn<QString>("reds");
    QTest::addColumn<QString>("remainders");
    QTest::newRow("the newest draw") << "08 09 17 25 27 32" << "2 0 2 1 0 2";
    QTest::newRow("empty tokens are passed over") << "03  04" << "0 1";
    QTest::newRow("the whole part is taken") << "5.9 -4" << "2 -1";
    QTest::newRow("five reds") << "01 02 03 04 05" << "1 2 0 1 2";
    QTest::newRow("nothing") << "" << "";
}

void RemainderFilterTest::remainders()
{
    QFETCH(QString, reds);
    QFETCH(QString, remainders);
    QCOMPARE(RemainderFilter::remaindersOf(reds), remainders);
    QCOMPARE(RemainderFilter(remainders).LastRemainders, textrules::split(remainders, QStringLiteral(" ")));
}

void RemainderFilterTest::listsOfTheThreeRemainders()
{
    const RemainderFilter filter(QStringLiteral("2 0 2 1 0 2"));
    QCOMPARE(filter.RemainderList0, QStringLiteral("03 06 09 12 15 18 21 24 27 30 33"));
    QCOMPARE(filter.RemainderList1, QStringLiteral("01 04 07 10 13 16 19 22 25 28 31"));
    QCOMPARE(filter.RemainderList2, QStringLiteral("02 05 08 11 14 17 20 23 26 29 32"));
    QCOMPARE(filter.LastRemainders, (QStringList{"2", "0", "2", "1", "0", "2"}));
    QCOMPARE(failureOf([] { RemainderFilter::remaindersOf(QStringLiteral("08 x9")); }), RuntimeError::TypeMismatch);
}

void RemainderFilterTest::lineTest_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<bool>("passes");
    QTest::newRow("every remainder repeats") << "02 03 05 07 09 11" << true;
    QTest::newRow("first position differs") << "01 03 05 07 09 11" << false;
    QTest::newRow("last position differs") << "02 03 05 07 09 10" << false;
    QTest::newRow("seven tokens") << "02 03 05 07 09 11 06" << false;
    QTest::newRow("a forecast line with a blue ball") << "02 03 05 07 09 11  06" << false;
    QTest::newRow("two blanks between numbers make seven tokens") << "02  03 05 07 09 11" << false;
    QTest::newRow("five numbers and an empty token") << "02  05 07 09 11" << true;
    QTest::newRow("a substring: 3 is in 03, 1 is in 31") << "2 3 5 1 9 11" << true;
    QTest::newRow("34 is nowhere") << "02 34 05 07 09 11" << false;
    QTest::newRow("033 is nowhere") << "02 033 05 07 09 11" << false;
    QTest::newRow("blanks around") << "  02 03 05 07 09 11 " << true;
    QTest::newRow("the same numbers out of order") << "03 02 05 07 09 11" << false;
}

void RemainderFilterTest::lineTest()
{
    QFETCH(QString, group);
    QFETCH(bool, passes);
    const RemainderFilter filter(QStringLiteral("2 0 2 1 0 2"));
    QCOMPARE(filter.号码是否合格(group), passes);
}

void RemainderFilterTest::shortRemaindersFailOnlyWhereTheyAreReached()
{
    const RemainderFilter filter(RemainderFilter::remaindersOf(QStringLiteral("08 09 17 25 27")));
    QCOMPARE(filter.号码是否合格(QStringLiteral("01 03 05 07 09 11")), false); // stops at the first position
    QCOMPARE(filter.号码是否合格(QStringLiteral("02 03 05")), false);          // not six tokens
    QCOMPARE(failureOf([&] { filter.号码是否合格(QStringLiteral("02 03 05 07 09 11")); }),
             RuntimeError::SubscriptOutOfRange);
    const RemainderFilter none{QString()};
    QCOMPARE(failureOf([&] { none.号码是否合格(QStringLiteral("02 03 05 07 09 11")); }),
             RuntimeError::SubscriptOutOfRange);
}

void RemainderFilterTest::filterKeepsOrderAndDuplicates()
{
    const RemainderFilter filter(QStringLiteral("2 0 2 1 0 2"));
    const QString pass = QStringLiteral("02 03 05 07 09 11");
    const QString other = QStringLiteral("05 06 08 10 12 14");
    const QString text = QStringList{"  " + pass, "01 03 05 07 09 11", "", other, pass, pass + "  06"}.join("\r\n");
    QCOMPARE(filter.filterLines(text), (QStringList{pass, other, pass, ""}.join("\r\n")));
    QCOMPARE(filter.filterLines(QStringLiteral("  \r\n")), QString());
    QCOMPARE(filter.filterLines(QString()), QString());
}

QTEST_APPLESS_MAIN(RemainderFilterTest)

#include "tst_remainderfilter.moc"
