#include "history/drawhistory.h"
#include "history/historyfile.h"
#include "historyrows.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

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

// Adds rows given as "issue | group | first red"; the cells left out stay empty.
void fill(DrawHistory& history, const QStringList& rows)
{
    for (const QString& row : rows) {
        const QStringList cells = row.split(QStringLiteral(" | "));
        QVERIFY(history.add(DrawHistory::keyOf(cells[0]), cells[0]));
        for (int subItem = 1; subItem < cells.size(); ++subItem)
            history.setSubItem(history.count() - 1, subItem, cells[subItem]);
    }
}

} // namespace

class HistoryFileTest : public QObject {
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
    void writesRowsAsTheyStand_data();
    void writesRowsAsTheyStand();
};

void HistoryFileTest::readsLines_data()
{
    QTest::addColumn<QByteArray>("file"); // null: no file at all
    QTest::addColumn<QStringList>("rows"); // behind the row that was there before

    const QString draw = QStringLiteral("2007024 | 08 09 17 25 27 32 06 15");
    QTest::newRow("no file") << QByteArray() << QStringList{};
    QTest::newRow("a good line") << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08\r\n") << QStringList{draw};
    QTest::newRow("two fields are dropped") << QByteArray("2007024*=*08 09 17 25 27 32 06 15\r\n") << QStringList{};
    QTest::newRow("empty third field is accepted") << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*\r\n")
                                                   << QStringList{draw};
    QTest::newRow("fields behind the third are ignored")
        << QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08*=*x\r\n") << QStringList{draw};
    QTest::newRow("blanks around fields are trimmed")
        << QByteArray(" 2007024 *=* 08 09 17 25 27 32 06 15 *=*\r\n") << QStringList{draw};
    QTest::newRow("blank issue is dropped") << QByteArray("  *=*08 09 17 25 27 32 06 15*=*08\r\n") << QStringList{};
    QTest::newRow("empty lines are passed over")
        << QByteArray("\r\n2007024*=*08 09 17 25 27 32 06 15*=*08\r\n\r\n") << QStringList{draw};
    QTest::newRow("the first line of an issue wins")
        << QByteArray("2007023*=*01 02 03 04 05 06 07 00*=*01\r\n"
                      "2007024*=*01 02 03 04 05 06 07 00*=*01\r\n"
                      "2007025*=*08 09 17 25 27 32 06 15*=*08\r\n"
                      "2007024*=*11 12 13 14 15 16 07 00*=*11\r\n")
        << QStringList{"2007024 | 01 02 03 04 05 06 07 00", "2007025 | 08 09 17 25 27 32 06 15"};
    QTest::newRow("last line without line end") << QByteArray("2007024*=*08*=*08") << QStringList{"2007024 | 08"};
    QTest::newRow("line feeds alone end lines")
        << QByteArray("2007024*=*01 02 03 04 05 06 07 00*=*\n2007025*=*08 09 17 25 27 32 06 15*=*\n")
        << QStringList{"2007024 | 01 02 03 04 05 06 07 00", "2007025 | 08 09 17 25 27 32 06 15"};
}

void HistoryFileTest::readsLines()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, rows);
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    if (!file.isNull())
        writeBytes(path, file);
    DrawHistory history;
    fill(history, {"2007023 | already there"});
    historyfile::read(path, history);
    QCOMPARE(rowsOf(history), QStringList{"2007023 | already there"} + rows);
    for (int row = 0; row < history.count(); ++row)
        QCOMPARE(history.key(row), QStringLiteral("A") + history.text(row));
}

void HistoryFileTest::writesRowsAsTheyStand_data()
{
    QTest::addColumn<QStringList>("rows"); // issue | group | first red
    QTest::addColumn<QByteArray>("file");

    QTest::newRow("an empty list is one line end") << QStringList{} << QByteArray("\r\n");
    QTest::newRow("in list order, never trimmed on the way out")
        << QStringList{"2007030 | 08 09 17 25 27 32 06 15 | 08", "2007024 |  01 02 "}
        << QByteArray("2007030*=*08 09 17 25 27 32 06 15*=*08\r\n2007024*=* 01 02 *=*\r\n");
}

void HistoryFileTest::writesRowsAsTheyStand()
{
    QFETCH(QStringList, rows);
    QFETCH(QByteArray, file);
    QTemporaryDir folder;
    const QString path = historyfile::pathIn(folder.path());
    writeBytes(path, "2007099*=*01*=*01\r\n"); // replaced as a whole
    DrawHistory history;
    fill(history, rows);
    historyfile::write(path, history);
    QCOMPARE(readBytes(path), file);
}

QTEST_GUILESS_MAIN(HistoryFileTest)
#include "tst_historyfile.moc"
