#include "fakes.h"
#include "forecast/resultoutput.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

class ResultOutputTest : public QObject {
    Q_OBJECT

private slots:
    void copyAll_data();
    void copyAll();
    void exportReplacesAnOlderDocumentAndOpensIt_data();
    void exportReplacesAnOlderDocumentAndOpensIt();
};

void ResultOutputTest::copyAll_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("copied");
    QTest::newRow("empty box") << "" << false;
    QTest::newRow("blanks and line breaks") << "  \r\n \r\n" << false;
    QTest::newRow("lines with their breaks") << "08 09 17 25 27 32\r\n01 05 09 12 20 33\r\n" << true;
    QTest::newRow("blanks around stay") << "  08 09 17 25 27 32 " << true;
}

void ResultOutputTest::copyAll()
{
    QFETCH(QString, text);
    QFETCH(bool, copied);
    FakeClipboard clipboard;
    clipboard.contents = QStringLiteral("earlier");
    resultoutput::copyAll(clipboard, text);
    QCOMPARE(clipboard.contents, copied ? text : QStringLiteral("earlier"));
    QCOMPARE(clipboard.clears, copied ? 1 : 0);
}

void ResultOutputTest::exportReplacesAnOlderDocumentAndOpensIt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("lines, then the added break")
        << "08 09 17 25 27 32\r\n01 05 09 12 20 33  06"
        << QByteArray("08 09 17 25 27 32\\par\r\n01 05 09 12 20 33  06\\par\r\n");
    QTest::newRow("an empty box still makes a document") << "" << QByteArray("\\par\r\n");
    QTest::newRow("characters of the format are escaped") << "a\\b{c}" << QByteArray("a\\\\b\\{c\\}\\par\r\n");
    QTest::newRow("Chinese as Unicode codes") << "号码" << QByteArray("\\u21495?\\u30721?\\par\r\n");
}

void ResultOutputTest::exportReplacesAnOlderDocumentAndOpensIt()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, body);
    QTemporaryDir folder;
    QFile file(QDir(folder.path()).filePath(QStringLiteral("PrintTemp.doc")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    FakeLauncher launcher;
    resultoutput::exportToWord(launcher, folder.path(), text);
    QCOMPARE(launcher.documents, QStringList{file.fileName()});
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray document = file.readAll();
    QVERIFY(document.startsWith("{\\rtf1"));
    QVERIFY(document.contains("{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}"));
    QVERIFY2(!QString::fromLatin1(document).contains(QRegularExpression(QStringLiteral("\\\\fs-?\\d"))),
             "no size is set");
    QVERIFY(document.endsWith("\\f0 " + body + "}\r\n"));
}

QTEST_GUILESS_MAIN(ResultOutputTest)

#include "tst_resultoutput.moc"
