#include "history/drawhistory.h"
#include "history/numbercolumns.h"
#include "platform/runtimefailure.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

void addDraw(DrawHistory& history, const QString& issue, const QString& group)
{
    QVERIFY(history.add(DrawHistory::keyOf(issue), issue));
    history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
}

QStringList column(const DrawHistory& history, int columnIndex)
{
    QStringList cells;
    for (int row = 0; row < history.count(); ++row)
        cells.append(history.cell(row, columnIndex));
    return cells;
}

// The code of the run-time failure that `action` meets, or -1 for none.
template <class Action>
int failureOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.code();
    }
    return -1;
}

constexpr int outOfBounds = RuntimeError::IndexOutOfBounds;

} // namespace

using Numbers = std::vector<qint32>;
Q_DECLARE_METATYPE(Numbers)

class DrawHistoryTest : public QObject {
    Q_OBJECT

private slots:
    void keysAreUnique();
    void failuresCarryTheirCodes();
    void sortIsOnceAndByText_data();
    void sortIsOnceAndByText();
    void sortIsStableAndCarriesTheSelection();
    void batchAnnouncesOnce();
    void numberColumns();
};

void DrawHistoryTest::keysAreUnique()
{
    DrawHistory history;
    addDraw(history, "2007024", "x");
    QVERIFY(!history.add("A2007024", "other"));
    QVERIFY(!history.add("a2007024", "other")); // keys ignore case
    QCOMPARE(history.count(), 1);
    history.removeAt(0);
    QVERIFY(history.add("A2007024", "again")); // a removed row frees its key
    history.clear();
    QVERIFY(history.add("A2007024", "2007024")); // and so does clearing
    addDraw(history, "2007025", "y");
    QVERIFY(!history.setKey(1, "A2007024"));
    QCOMPARE(history.key(1), QStringLiteral("A2007025"));
    QVERIFY(history.setKey(1, "A2007026"));
    QVERIFY(history.add("A2007025", "2007025")); // the old key is free again
    QVERIFY(!history.add("A2007026", "2007026"));
    QVERIFY(history.setKey(0, "a2007024")); // its own key, in another case
}

void DrawHistoryTest::failuresCarryTheirCodes()
{
    DrawHistory history;
    addDraw(history, "2007024", "");
    QCOMPARE(failureOf([&] { history.subItem(1, 1); }), outOfBounds);
    QCOMPARE(failureOf([&] { history.subItem(0, 11); }), outOfBounds);
    QCOMPARE(failureOf([&] { history.subItem(0, 0); }), outOfBounds);
    QCOMPARE(failureOf([&] { history.removeAt(-1); }), outOfBounds);
    QCOMPARE(failureOf([&] { history.setSubItem(5, 1, "x"); }), outOfBounds);
    Numbers five{5, 4, 3, 2, 1};
    QCOMPARE(failureOf([&] { 排序6个数字(five); }), int(RuntimeError::SubscriptOutOfRange));
    QCOMPARE(five, (Numbers{5, 4, 3, 2, 1}));
}

void DrawHistoryTest::sortIsOnceAndByText_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<int>("order");
    QTest::addColumn<QStringList>("sorted");
    QTest::newRow("two digits ascending") << QStringList{"17", "03", "33", "08"} << 0
                                          << QStringList{"03", "08", "17", "33"};
    QTest::newRow("descending") << QStringList{"17", "03", "33", "08"} << 1 << QStringList{"33", "17", "08", "03"};
    QTest::newRow("one digit sorts above 33") << QStringList{"33", "8", "12"} << 1 << QStringList{"8", "33", "12"};
    QTest::newRow("blanks sort last descending") << QStringList{"", "05", "30"} << 1 << QStringList{"30", "05", ""};
    QTest::newRow("negative cells") << QStringList{"05", "-03", "00"} << 1 << QStringList{"05", "00", "-03"};
}

void DrawHistoryTest::sortIsOnceAndByText()
{
    QFETCH(QStringList, cells);
    QFETCH(int, order);
    QFETCH(QStringList, sorted);
    DrawHistory history;
    for (int i = 0; i < cells.size(); ++i) {
        addDraw(history, QString::number(2007001 + i), "g");
        history.setSubItem(i, 2, cells[i]);
    }
    history.sortOnce(2, order);
    QCOMPARE(column(history, 2), sorted);
    QCOMPARE(history.SortOrder(), order);
    QVERIFY(!history.Sorted());
}

void DrawHistoryTest::sortIsStableAndCarriesTheSelection()
{
    DrawHistory history;
    addDraw(history, "2007001", "a");
    addDraw(history, "2007003", "b");
    addDraw(history, "2007002", "b");
    const QPersistentModelIndex selected = history.index(0, 0);
    history.sortOnce(1, 1);
    QCOMPARE(column(history, 0), (QStringList{"2007003", "2007002", "2007001"}));
    QCOMPARE(selected.row(), 2);
    addDraw(history, "2007000", "zzz"); // added later: at the end
    QCOMPARE(history.text(3), QStringLiteral("2007000"));
}

void DrawHistoryTest::batchAnnouncesOnce()
{
    DrawHistory history;
    addDraw(history, "2007000", "00 01 02 03 04 05 06 07");
    QSignalSpy inserted(&history, &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(&history, &QAbstractItemModel::dataChanged);
    {
        DrawHistory::Batch batch(history);
        for (int i = 1; i <= 100; ++i)
            addDraw(history, QString::number(2007000 + i), "01 02 03 04 05 06 07 08");
        history.setSubItem(0, 10, "x");
        QCOMPARE(history.count(), 101);
        QCOMPARE(history.rowCount(), 1); // the views learn of the rows at the end
        QCOMPARE(inserted.count(), 0);
    }
    QCOMPARE(history.rowCount(), 101);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 1);
    QCOMPARE(inserted[0][2].toInt(), 100);
    QCOMPARE(changed.count(), 1);
}

void DrawHistoryTest::numberColumns()
{
    DrawHistory history;
    addDraw(history, "2007024", "08 09 17 25 27 32 06 15");
    addDraw(history, "2007025", "01 02 03 04 05 06 07 08 09"); // tokens behind the eighth are ignored
    numbercolumns::split(history);
    QCOMPARE(column(history, 2), (QStringList{"08", "01"}));
    QCOMPARE(column(history, 9), (QStringList{"15", "08"}));
    QCOMPARE(column(history, 10), (QStringList{"", ""}));

    history.setSubItem(0, 10, "03");
    history.setSubItem(1, 10, "04");
    numbercolumns::clearScratch(history);
    QCOMPARE(column(history, 10), (QStringList{"", ""}));
    QCOMPARE(column(history, 9), (QStringList{"15", "08"}));
}

QTEST_GUILESS_MAIN(DrawHistoryTest)
#include "tst_drawhistory.moc"
