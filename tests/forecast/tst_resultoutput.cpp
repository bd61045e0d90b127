#include "fakes.h"
#include "forecast/duplicatelines.h"
#include "forecast/resultoutput.h"
#include "forecast/textholder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

// What the buttons beside the result box do with its text: copy it, export it
// for the word processor, filter out repeated lines.

namespace {

class FakeBox final : public TextHolder {
public:
    QString Text() const override { return text; }
    void setText(const QString& value) override { text = value; }
    QString text;
};

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

QString report(int before, int after)
{
    return QStringLiteral("过滤重复前：%1 行记录；过滤重复后：%2 行记录。").arg(before).arg(after);
}

const QString refused = QStringLiteral("号码格式不对！请重新预测或者修正！");
const QString a = QStringLiteral("08 09 17 25 27 32");
const QString b = QStringLiteral("01 05 09 12 20 33");

} // namespace

class ResultOutputTest : public QObject {
    Q_OBJECT

private slots:
    void copyAll_data();
    void copyAll();
    void exportReplacesAnOlderDocumentAndOpensIt_data();
    void exportReplacesAnOlderDocumentAndOpensIt();
    void filterDuplicateLines_data();
    void filterDuplicateLines();
};

void ResultOutputTest::copyAll_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("copied");
    QTest::newRow("blanks and line breaks") << "  \r\n \r\n" << false;
    QTest::newRow("lines with their breaks") << lines({a, b, ""}) << true;
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
    QTest::addColumn<bool>("blocked"); // a folder stands where the document goes
    QTest::newRow("lines, then the added break")
        << a + "\r\n" + b << (a + "\\par\r\n" + b + "\\par\r\n").toLatin1() << false;
    QTest::newRow("an empty box still makes a document") << "" << QByteArray("\\par\r\n") << false;
    QTest::newRow("characters of the format escaped, Chinese as signed Unicode codes")
        << "a\\b{c}号码预" << QByteArray("a\\\\b\\{c\\}\\u21495?\\u30721?\\u-26492?\\par\r\n") << false;
    QTest::newRow("a folder in the way: opened from a file of its own") << "08" << QByteArray("08\\par\r\n") << true;
}

void ResultOutputTest::exportReplacesAnOlderDocumentAndOpensIt()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, body);
    QFETCH(bool, blocked);
    QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath(QStringLiteral("PrintTemp.doc"));
    if (blocked) {
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("PrintTemp.doc")));
    } else {
        QFile older(path);
        QVERIFY(older.open(QIODevice::WriteOnly));
        older.write(QByteArray(5000, 'x'));
    }
    FakeLauncher launcher;
    resultoutput::exportToWord(launcher, folder.path(), text);
    QCOMPARE(launcher.documents.size(), 1);
    QCOMPARE(launcher.documents[0] == path, !blocked);
    QFile file(launcher.documents[0]);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray document = file.readAll();
    if (blocked)
        file.remove();
    // Arial of the reader's own size: no size is set.
    QCOMPARE(document, QByteArray("{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}")
                           + "\r\n\\pard\\plain\\f0 " + body + "}\r\n");
}

void ResultOutputTest::filterDuplicateLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("message");
    const QString c = QStringLiteral("03 09 17 20 27 30");
    QTest::newRow("no repeats come back sorted") << lines({a, b, c}) + "\r\n" << lines({b, c, a}) << report(3, 3);
    QTest::newRow("a blank line counts before and is gone after") << lines({a, "", b, a}) << lines({b, a})
                                                                   << report(4, 2);
    QTest::newRow("two breaks at the end: one pair is cut, the other counts")
        << lines({a, b}) + "\r\n\r\n" << lines({b, a}) << report(3, 2);
    QTest::newRow("same reds, other blue: both stay")
        << lines({a + "  06", a + "  01", a + "  06"}) << lines({a + "  01", a + "  06"}) << report(3, 2);
    QTest::newRow("lines of 16 and 18 pass as 17 and compare on 17")
        << lines({"01 02 03 04 05 0", "01 02 03 04 05 066", "01 02 03 04 05 06"})
        << lines({"01 02 03 04 05 0", "01 02 03 04 05 06"}) << report(3, 2);
    QTest::newRow("blanks around a line don't count in the mean; the field is its first 17 characters")
        << lines({"  " + a + "  ", b, a}) << lines({"  08 09 17 25 27 ", b, a}) << report(3, 3);
    // 17 and 1/1,100,000 is 17 in single precision: one line of 18 passes.
    QTest::newRow("a stray line passes in a long text")
        << QString(a + "\r\n").repeated(1099999) + b + "4" << lines({b, a}) << report(1100000, 2);
    QTest::newRow("empty text is refused") << "" << "" << refused;
    QTest::newRow("one line of each layout gives 19, refused") << lines({a, a + "  06"}) << "" << refused;
    QTest::newRow("history form of 20 is refused") << lines({a + " 06", b + " 11"}) << "" << refused;
}

void ResultOutputTest::filterDuplicateLines()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    QFETCH(QString, message);
    FakeBox box;
    box.text = text;
    FakeMessages messages;
    FilterDuplicateLines(box, messages);
    // A refused text leaves the box as it was.
    QCOMPARE(box.text, message == refused ? text : result);
    QCOMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].icon, message == refused ? MessageIcon::Critical : MessageIcon::Information);
    QCOMPARE(messages.shown[0].text, message);
}

QTEST_GUILESS_MAIN(ResultOutputTest)

#include "tst_resultoutput.moc"
