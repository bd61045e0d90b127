#include "forecast/richtextbox.h"

#include <QtTest>

class RichTextBoxTest : public QObject {
    Q_OBJECT

private slots:
    void insertAtTheCaret_data();
    void insertAtTheCaret();
};

void RichTextBoxTest::insertAtTheCaret_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("inserted");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("caretAfter");
    QTest::newRow("at the end, behind a break") << "08\r\n" << 4 << "09\r\n" << "08\r\n09\r\n" << 8;
    QTest::newRow("beyond the end is the end; lone LF and CR become CR LF")
        << "a\nb\rc" << 99 << "\n" << "a\r\nb\r\nc\r\n" << 9;
    QTest::newRow("start of the second line") << "ab\r\ncd" << 4 << "X" << "ab\r\nXcd" << 5;
    QTest::newRow("between CR and LF: at the break") << "ab\r\ncd" << 3 << "X" << "abX\r\ncd" << 3;
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

QTEST_MAIN(RichTextBoxTest)

#include "tst_richtextbox.moc"
