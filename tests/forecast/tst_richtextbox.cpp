#include "app/programstyle.h"
#include "forecast/richtextbox.h"

#include <QApplication>
#include <QTextDocument>
#include <QtTest>

class RichTextBoxTest : public QObject {
    Q_OBJECT

private slots:
    void textKeepsCrLf_data();
    void textKeepsCrLf();
    void insertAtTheCaret_data();
    void insertAtTheCaret();
    void selectionCountsABreakAsTwo();
    void typedLinesReadBackWithCrLf();
};

void RichTextBoxTest::textKeepsCrLf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("readBack");
    QTest::addColumn<int>("lines");
    QTest::newRow("CR LF stays") << "08 09\r\n17 25\r\n" << "08 09\r\n17 25\r\n" << 3;
    QTest::newRow("lone LF and CR become CR LF") << "a\nb\rc" << "a\r\nb\r\nc" << 3;
    QTest::newRow("empty") << "" << "" << 1;
    QTest::newRow("two breaks") << "a\r\n\r\n" << "a\r\n\r\n" << 3;
}

void RichTextBoxTest::textKeepsCrLf()
{
    QFETCH(QString, text);
    QFETCH(QString, readBack);
    QFETCH(int, lines);
    RichTextBox box;
    box.setText(text);
    QCOMPARE(box.Text(), readBack);
    QCOMPARE(box.document()->blockCount(), lines);
}

void RichTextBoxTest::insertAtTheCaret_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("inserted");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("caretAfter");
    QTest::newRow("at the end of an empty box") << "" << 0 << "08 09\r\n" << "08 09\r\n" << 7;
    QTest::newRow("at the end, behind a break") << "08\r\n" << 4 << "09\r\n" << "08\r\n09\r\n" << 8;
    QTest::newRow("at the end, no break before") << "08 09" << 5 << "17\r\n" << "08 0917\r\n" << 9;
    QTest::newRow("start of the second line") << "ab\r\ncd" << 4 << "X" << "ab\r\nXcd" << 5;
    QTest::newRow("between CR and LF: at the break") << "ab\r\ncd" << 3 << "X" << "abX\r\ncd" << 3;
    QTest::newRow("beyond the end is the end") << "ab" << 99 << "X" << "abX" << 3;
}

void RichTextBoxTest::insertAtTheCaret()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(QString, inserted);
    QFETCH(QString, result);
    QFETCH(int, caretAfter);
    RichTextBox box;
    box.setText(text);
    box.setSelStart(start);
    QCOMPARE(box.SelLength(), 0);
    box.setSelText(inserted);
    QCOMPARE(box.Text(), result);
    QCOMPARE(box.SelStart(), caretAfter);
}

void RichTextBoxTest::selectionCountsABreakAsTwo()
{
    RichTextBox box;
    box.setText(QStringLiteral("ab\r\ncd\r\nef"));
    box.setSelStart(1);
    box.setSelLength(4);
    QCOMPARE(box.SelStart(), 1);
    QCOMPARE(box.SelLength(), 4);
    QCOMPARE(box.SelText(), QStringLiteral("b\r\nc"));
    box.setSelText(QStringLiteral("-"));
    QCOMPARE(box.Text(), QStringLiteral("a-d\r\nef"));
}

void RichTextBoxTest::typedLinesReadBackWithCrLf()
{
    RichTextBox box;
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QTest::keyClicks(&box, QStringLiteral("08 09"));
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, QStringLiteral("17"));
    QCOMPARE(box.Text(), QStringLiteral("08 09\r\n17"));
    QCOMPARE(box.SelStart(), 9);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    RichTextBoxTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_richtextbox.moc"
