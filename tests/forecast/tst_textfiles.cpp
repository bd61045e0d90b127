#include "fakes.h"
#include "forecast/textfiles.h"

#include <QStringDecoder>
#include <QTemporaryDir>
#include <QtTest>

class TextFilesTest : public QObject {
    Q_OBJECT

private slots:
    void readsUtf8WithACutEndElseGb18030_data();
    void readsUtf8WithACutEndElseGb18030();
};

void TextFilesTest::readsUtf8WithACutEndElseGb18030_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text"); // empty: the bytes read as GB18030
    const QByteArray groups = QStringLiteral("01 02 号码\r\n").toUtf8();
    const QString read = QStringLiteral("01 02 号码\r\n");
    const QString cut = read + QChar(QChar::ReplacementCharacter);
    const QByteArray twoBytes = QStringLiteral("é").toUtf8();
    const QByteArray threeBytes = QStringLiteral("号").toUtf8();
    const QByteArray fourBytes = QStringLiteral("\U0001F600").toUtf8();
    QTest::newRow("whole") << groups + fourBytes << read + QStringLiteral("\U0001F600");
    QTest::newRow("two-byte sequence, cut after 1") << groups + twoBytes.first(1) << cut;
    QTest::newRow("three-byte sequence, cut after 1") << groups + threeBytes.first(1) << cut;
    QTest::newRow("three-byte sequence, cut after 2") << groups + threeBytes.first(2) << cut;
    QTest::newRow("four-byte sequence, cut after 1") << groups + fourBytes.first(1) << cut;
    QTest::newRow("four-byte sequence, cut after 3") << groups + fourBytes.first(3) << cut;
    QTest::newRow("nothing but a cut sequence") << fourBytes.first(2) << QString(QChar(QChar::ReplacementCharacter));
    QTest::newRow("a byte-order mark and a cut end") << "\xef\xbb\xbf" + groups + threeBytes.first(2) << cut;
    QTest::newRow("a cut sequence before the end") << threeBytes.first(2) + groups << QString();
    QTest::newRow("a fault before a cut end") << "\xff" + groups + threeBytes.first(2) << QString();
    QTest::newRow("a second byte that no sequence has") << groups + "\xe0\x80" << QString();
    QTest::newRow("a surrogate's beginning") << groups + "\xed\xa0" << QString();
    QTest::newRow("beyond U+10FFFF") << groups + "\xf4\x90" << QString();
    QTest::newRow("older file in GBK") << QByteArray(QStringEncoder("GB18030").encode(read)) << QString();
}

void TextFilesTest::readsUtf8WithACutEndElseGb18030()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QTemporaryDir folder;
    FakeFileDialogs dialogs;
    dialogs.nextName = folder.filePath(QStringLiteral("groups.txt"));
    QFile file(dialogs.nextName);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const QString expected = text.isEmpty() ? QStringDecoder("GB18030").decode(bytes) : text;
    QCOMPARE(textfiles::importText(dialogs), expected);
}

QTEST_APPLESS_MAIN(TextFilesTest)

#include "tst_textfiles.moc"
