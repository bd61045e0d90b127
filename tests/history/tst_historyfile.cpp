#include "history/drawhistory.h"
#include "history/historyfile.h"
#include "history/numbercolumns.h"
#include "platform/runtimefailure.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Draw {
    QString issue;
    QString group;
    bool operator==(const Draw&) const = default;
};

QList<Draw> rowsOf(const DrawHistory& history)
{
    QList<Draw> rows;
    for (int row = 0; row < history.count(); ++row)
        rows.append({history.text(row), history.subItem(row, DrawHistory::GroupSubItem)});
    return rows;
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Q_DECLARE_METATYPE(QList<Draw>)

namespace QTest {
template <>
char* toString(const Draw& draw)
{
    return qstrdup(qPrintable(draw.issue + QStringLiteral(" | ") + draw.group));
}
} // namespace QTest

class HistoryFileTest : public QObject {
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
    void missingFileAddsNothing();
    void emptyListIsTwoBytesAndReadsBackEmpty();
    void writesFieldsAsTheyStand();
    void roundTripKeepsRowsAndOrder();
    void sortThenSaveKeepsSortedOrder();
    void sevenNumberRowStopsThePassButSavesRight();
    void readAppendsBehindExistingRows();
};

void HistoryFileTest::readsLines_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QList<Draw>>("rows");

    QTest::newRow("a good line") << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08\r\n")
                                 << QList<Draw>{{"2007024", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("two fields are dropped") << QByteArray("2007024*=*08 09 17 25 27 32 06 15\r\n") << QList<Draw>{};
    QTest::newRow("empty third field is accepted") << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*\r\n")
                                                   << QList<Draw>{{"2007024", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("fields behind the third are ignored")
        << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08*=*x\r\n")
        << QList<Draw>{{"2007024", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("blanks around fields are trimmed")
        << QByteArray(" 2007024 *=* 08 09 17 25 27 32 06 15 *=*\r\n")
        << QList<Draw>{{"2007024", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("blank issue is dropped") << QByteArray("  *=*08 09 17 25 27 32 06 15*=*08\r\n") << QList<Draw>{};
    QTest::newRow("empty lines are passed over")
        << QByteArray("\r\n2007024*=*08 09 17 25 27 32 06 15*=*08\r\n\r\n")
        << QList<Draw>{{"2007024", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("the first line of an issue wins")
        << QByteArray("2007024*=*01 02 03 04 05 06 07 00*=*01\r\n"
                      "2007025*=*08 09 17 25 27 32 06 15*=*08\r\n"
                      "2007024*=*11 12 13 14 15 16 07 00*=*11\r\n")
        << QList<Draw>{{"2007024", "01 02 03 04 05 06 07 00"}, {"2007025", "08 09 17 25 27 32 06 15"}};
    QTest::newRow("last line without line end") << QByteArray("2007024*=*08*=*08")
                                                << QList<Draw>{{"2007024", "08"}};
    QTest::newRow("line feeds alone end lines")
        << QByteArray("2007024*=*01 02 03 04 05 06 07 00*=*\n2007025*=*08 09 17 25 27 32 06 15*=*\n")
        << QList<Draw>{{"2007024", "01 02 03 04 05 06 07 00"}, {"2007025", "08 09 17 25 27 32 06 15"}};
}

void HistoryFileTest::readsLines()
{
    QFETCH(QByteArray, file);
    QFETCH(QList<Draw>, rows);
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, file);
    DrawHistory history;
    historyfile::read(path, history);
    QCOMPARE(rowsOf(history), rows);
    for (int row = 0; row < history.count(); ++row)
        QCOMPARE(history.key(row), QStringLiteral("A") + history.text(row));
}

void HistoryFileTest::missingFileAddsNothing()
{
    QTemporaryDir folder;
    DrawHistory history;
    historyfile::read(historyfile::pathIn(folder.path()), history);
    QCOMPARE(history.count(), 0);
}

void HistoryFileTest::emptyListIsTwoBytesAndReadsBackEmpty()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, "2007024*=*08*=*08\r\n");
    DrawHistory empty;
    historyfile::write(path, empty);
    QCOMPARE(readBytes(path), QByteArray("\r\n"));
    DrawHistory reread;
    historyfile::read(path, reread);
    QCOMPARE(reread.count(), 0);
}

void HistoryFileTest::writesFieldsAsTheyStand()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    DrawHistory history;
    history.add(DrawHistory::keyOf("2007024"), "2007024");
    history.setSubItem(0, 1, "08 09 17 25 27 32 06 15");
    history.setSubItem(0, 2, "08");
    history.add(DrawHistory::keyOf("2007025"), "2007025");
    history.setSubItem(1, 1, " 01 02 "); // never trimmed on the way out
    historyfile::write(path, history);
    QCOMPARE(readBytes(path), QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08\r\n"
                                         "2007025*=* 01 02 *=*\r\n"));
}

void HistoryFileTest::roundTripKeepsRowsAndOrder()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    DrawHistory history;
    const QList<Draw> draws{{"2007030", "01 02 03 04 05 06 07 00"},
                            {"2007024", "08 09 17 25 27 32 06 15"},
                            {"2007027", "10 11 12 13 14 15 16 01"}};
    for (const Draw& draw : draws) {
        history.add(DrawHistory::keyOf(draw.issue), draw.issue);
        history.setSubItem(history.count() - 1, 1, draw.group);
    }
    numbercolumns::split(history);
    historyfile::write(path, history);
    DrawHistory reread;
    historyfile::read(path, reread);
    QCOMPARE(rowsOf(reread), draws);
    QVERIFY(readBytes(path).startsWith("2007030*=*01 02 03 04 05 06 07 00*=*01\r\n"));
}

void HistoryFileTest::sortThenSaveKeepsSortedOrder()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, "2007024*=*08 09 17 25 27 32 06 15*=*\r\n"
                     "2007030*=*01 02 03 04 05 06 07 00*=*\r\n"
                     "2007027*=*10 11 12 13 14 15 16 01*=*\r\n");
    DrawHistory history;
    historyfile::read(path, history);
    history.sortOnce(0, 1);
    historyfile::write(path, history);
    DrawHistory reread;
    historyfile::read(path, reread);
    QCOMPARE(reread.text(0), QStringLiteral("2007030"));
    QCOMPARE(reread.text(1), QStringLiteral("2007027"));
    QCOMPARE(reread.text(2), QStringLiteral("2007024"));
}

void HistoryFileTest::sevenNumberRowStopsThePassButSavesRight()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, "2007024*=*08 09 17 25 27 32 06 15*=*\r\n"
                     "2007025*=*01 02 03 04 05 06 07*=*\r\n"
                     "2007026*=*10 11 12 13 14 15 16 01*=*\r\n");
    DrawHistory history;
    historyfile::read(path, history);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, numbercolumns::split(history));
    QCOMPARE(history.subItem(0, 9), QStringLiteral("15"));
    QCOMPARE(history.subItem(1, 2), QStringLiteral("01"));
    QCOMPARE(history.subItem(1, 8), QStringLiteral("07")); // filled up to the missing token
    QCOMPARE(history.subItem(1, 9), QString());
    QCOMPARE(history.subItem(2, 2), QString()); // never reached
    historyfile::write(path, history);
    QCOMPARE(readBytes(path), QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08\r\n"
                                         "2007025*=*01 02 03 04 05 06 07*=*01\r\n"
                                         "2007026*=*10 11 12 13 14 15 16 01*=*\r\n"));
}

void HistoryFileTest::readAppendsBehindExistingRows()
{
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, "2007024*=*from the file*=*\r\n2007025*=*second*=*\r\n");
    DrawHistory history;
    history.add(DrawHistory::keyOf("2007024"), "2007024");
    history.setSubItem(0, 1, "already there");
    historyfile::read(path, history);
    QCOMPARE(rowsOf(history), (QList<Draw>{{"2007024", "already there"}, {"2007025", "second"}}));
}

QTEST_GUILESS_MAIN(HistoryFileTest)
#include "tst_historyfile.moc"
