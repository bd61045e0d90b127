#include "fakes.h"
#include "forecast/textfiles.h"

#include <QDir>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

class TextFilesTest : public QObject {
    Q_OBJECT

private slots:
    void decoding_data();
    void decoding();
    void writtenAsUtf8WithCrLf();
    void importAsksForATxtFile();
    void cancelledOrUnreadableImportGivesNothing();
    void failedSaveLeavesTheFileAsItWas();
};

void TextFilesTest::decoding_data()
{
    const QString chinese = QStringLiteral("号码组 01 02\r\n");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8") << chinese.toUtf8() << chinese;
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xEF\xBB\xBF") + chinese.toUtf8() << chinese;
    QTest::newRow("GBK") << QStringEncoder("GB18030").encode(chinese).operator QByteArray() << chinese;
    QTest::newRow("digits only") << QByteArray("08 09 17\r\n") << QStringLiteral("08 09 17\r\n");
}

void TextFilesTest::decoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(textfiles::decode(bytes), text);
}

void TextFilesTest::writtenAsUtf8WithCrLf()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("out.txt"));
    QVERIFY(textfiles::write(path, QStringLiteral("号 01\nA\r\nB\rC\r\n")));
    QCOMPARE(bytesOf(path), QStringLiteral("号 01\r\nA\r\nB\r\nC\r\n").toUtf8());
    QCOMPARE(textfiles::read(path), QStringLiteral("号 01\r\nA\r\nB\r\nC\r\n"));
}

void TextFilesTest::importAsksForATxtFile()
{
    QTemporaryDir folder;
    FakeFileDialogs dialogs;
    dialogs.nextName = folder.filePath(QStringLiteral("in.txt"));
    writeBytes(dialogs.nextName, "01 02\r\n");
    QCOMPARE(textfiles::importText(dialogs), QStringLiteral("01 02\r\n"));
    textfiles::saveText(dialogs, QStringLiteral("03"));
    QCOMPARE(bytesOf(dialogs.nextName), QByteArray("03"));
    QCOMPARE(dialogs.asked, (QStringList{"*.txt|txt", "*.txt|txt"}));
}

void TextFilesTest::cancelledOrUnreadableImportGivesNothing()
{
    QTemporaryDir folder;
    FakeFileDialogs dialogs;
    QCOMPARE(textfiles::importText(dialogs), std::nullopt);
    dialogs.nextName = folder.filePath(QStringLiteral("missing.txt"));
    QCOMPARE(textfiles::importText(dialogs), std::nullopt);
    dialogs.nextName = folder.path(); // a folder can't be read as a file
    QCOMPARE(textfiles::importText(dialogs), std::nullopt);
}

void TextFilesTest::failedSaveLeavesTheFileAsItWas()
{
    QTemporaryDir folder;
    // A name that is a folder, and a name in a folder that doesn't exist.
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("taken.txt")));
    QVERIFY(!textfiles::write(folder.filePath(QStringLiteral("taken.txt")), QStringLiteral("new")));
    QVERIFY(QFileInfo(folder.filePath(QStringLiteral("taken.txt"))).isDir());
    QVERIFY(!textfiles::write(folder.filePath(QStringLiteral("no/such.txt")), QStringLiteral("x")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

QTEST_APPLESS_MAIN(TextFilesTest)

#include "tst_textfiles.moc"
