#include "app/mainform.h"
#include "history/formadd.h"
#include "history/forminput.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>

namespace {

const QStringList twoDraws{
    "2007024*=*08 09 17 25 27 32 06 15*=*08",
    "2007025*=*10 11 12 13 14 15 16 01*=*10",
};

QStringList rowsOf(MainForm& form)
{
    QStringList rows;
    for (int row = 0; row < form.history().count(); ++row)
        rows.append(form.history().text(row) + QStringLiteral(" | ") + form.history().subItem(row, 1));
    return rows;
}

void selectRow(MainForm& form, int row)
{
    const QRect cell = form.ListView1->visualRect(form.history().index(row, 0));
    QTest::mouseClick(form.ListView1->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(form.selectedRow(), row);
}

// Types into the draw window that the command opens and presses 添加 or 取消.
void fillFormAdd(const QString& issue, const QString& numbers, bool confirm = true)
{
    whenModalShown([=](QWidget* window) {
        auto* form = qobject_cast<FormAdd*>(window);
        QVERIFY(form);
        form->Text1->clear();
        form->Text2->clear();
        QTest::keyClicks(form->Text1, issue);
        QTest::keyClicks(form->Text2, numbers);
        QTest::mouseClick(confirm ? form->Command1 : form->Command2, Qt::LeftButton);
    });
}

// The run-time failure report came, the program asked to end, and the
// history file is as the start found it.
void verifyEndedUnsaved(StartedMainForm& s)
{
    QCOMPARE(s.app.process.exitCodes, QList<int>{1});
    QCOMPARE(s.app.messages.shown.size(), 1);
    QCOMPARE(s.app.messages.shown[0].icon, MessageIcon::Critical);
    QVERIFY(s.app.messages.shown[0].text.contains(QStringLiteral("下标越界")));
    QCOMPARE(s.app.historyBytes(), s.historyAtStart);
}

} // namespace

class HistoryEditingTest : public QObject {
    Q_OBJECT

private slots:
    void addAppendsASortedDraw();
    void addRefusesIncompleteAndNonNumericInput_data();
    void addRefusesIncompleteAndNonNumericInput();
    void addOfAnExistingIssueChangesNothing();
    void cancelledAddStillRunsThePass();
    void addOfSevenNumbersEndsTheProgramUnsaved();
    void modifyNeedsASelection();
    void modifyChangesTheSelectedRow();
    void modifyToAnExistingIssueKeepsTheOldKey();
    void importAppendsLinesAndCountsThem();
    void importClearAndCancel();
    void importBoxWrapsAndEscapeCancels();
    void importOfASevenNumberLineEndsTheProgramUnsaved();
};

void HistoryEditingTest::addAppendsASortedDraw()
{
    StartedMainForm s(twoDraws);
    fillFormAdd(QStringLiteral("2007026"), QStringLiteral("8 32 17 25 27 9 6 15"));
    s.form.menu添加->trigger();
    QCOMPARE(rowsOf(s.form).last(), QStringLiteral("2007026 | 08 09 17 25 27 32 06 15"));
    QCOMPARE(s.form.history().key(2), QStringLiteral("A2007026"));
    QCOMPARE(s.form.history().subItem(2, 2), QStringLiteral("08")); // the pass ran
    QCOMPARE(s.form.history().subItem(2, 9), QStringLiteral("15"));
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：3"));
    QVERIFY(s.app.messages.shown.isEmpty());
    QVERIFY(!s.app.process.ended());
    QCOMPARE(s.app.historyBytes(), s.historyAtStart); // the file changes at exit only
}

void HistoryEditingTest::addRefusesIncompleteAndNonNumericInput_data()
{
    QTest::addColumn<QString>("issue");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<QString>("message");
    QTest::newRow("blank issue") << "   " << "08 09 17 25 27 32 06 15" << "信息不完整。";
    QTest::newRow("blank numbers") << "2007026" << "   " << "信息不完整。";
    QTest::newRow("letters in the numbers") << "2007026" << "08 09 ab 25 27 32 06 15" << "信息必须都是数字。";
    QTest::newRow("letters in the issue") << "2007x" << "08 09 17 25 27 32 06 15" << "信息必须都是数字。";
}

void HistoryEditingTest::addRefusesIncompleteAndNonNumericInput()
{
    QFETCH(QString, issue);
    QFETCH(QString, numbers);
    QFETCH(QString, message);
    StartedMainForm s(twoDraws);
    bool stayedOpen = false;
    whenModalShown([&](QWidget* window) {
        auto* form = qobject_cast<FormAdd*>(window);
        QTest::keyClicks(form->Text1, issue);
        QTest::keyClicks(form->Text2, numbers);
        QTest::mouseClick(form->Command1, Qt::LeftButton);
        stayedOpen = form->isVisible();
        QCOMPARE(form->Text2->text(), numbers); // the input stays as typed
        QTest::mouseClick(form->Command2, Qt::LeftButton);
    });
    s.form.menu添加->trigger();
    QVERIFY(stayedOpen);
    QCOMPARE(s.app.messages.shown.size(), 1);
    QCOMPARE(s.app.messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(s.app.messages.shown[0].text, message);
    QCOMPARE(s.form.history().count(), 2);
}

void HistoryEditingTest::addOfAnExistingIssueChangesNothing()
{
    StartedMainForm s(twoDraws);
    fillFormAdd(QStringLiteral("2007025"), QStringLiteral("01 02 03 04 05 06 07 08"));
    s.form.menu添加->trigger();
    QCOMPARE(rowsOf(s.form), (QStringList{"2007024 | 08 09 17 25 27 32 06 15", "2007025 | 10 11 12 13 14 15 16 01"}));
    QVERIFY(s.app.messages.shown.isEmpty());
}

void HistoryEditingTest::cancelledAddStillRunsThePass()
{
    StartedMainForm s(twoDraws);
    s.form.history().setSubItem(1, 2, QStringLiteral("stale"));
    fillFormAdd(QStringLiteral("2007026"), QStringLiteral("01 02 03 04 05 06 07 08"), false);
    s.form.menu添加->trigger();
    QCOMPARE(s.form.history().count(), 2);
    QCOMPARE(s.form.history().subItem(1, 2), QStringLiteral("10"));
}

void HistoryEditingTest::addOfSevenNumbersEndsTheProgramUnsaved()
{
    StartedMainForm s(twoDraws);
    fillFormAdd(QStringLiteral("2007026"), QStringLiteral("08 09 17 25 27 32 06"));
    s.form.menu添加->trigger();
    verifyEndedUnsaved(s);
    // The count panel is not reached.
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：2"));
}

void HistoryEditingTest::modifyNeedsASelection()
{
    StartedMainForm s(twoDraws);
    ModalWatch watch([](QWidget* window) { window->close(); });
    s.form.menu修改->trigger();
    QCoreApplication::processEvents();
    QVERIFY(!watch.fired());
    QCOMPARE(s.form.history().count(), 2);
}

void HistoryEditingTest::modifyChangesTheSelectedRow()
{
    StartedMainForm s(twoDraws);
    selectRow(s.form, 1);
    QString shownIssue;
    QString shownNumbers;
    whenModalShown([&](QWidget* window) {
        auto* form = qobject_cast<FormAdd*>(window);
        shownIssue = form->Text1->text();
        shownNumbers = form->Text2->text();
        QCOMPARE(form->Command1->text(), QStringLiteral("添加"));
        form->Text1->setText(QStringLiteral("2007027"));
        form->Text2->setText(QStringLiteral("33 1 2 3 4 5 9 00"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu修改->trigger();
    QCOMPARE(shownIssue, QStringLiteral("2007025"));
    QCOMPARE(shownNumbers, QStringLiteral("10 11 12 13 14 15 16 01"));
    QCOMPARE(rowsOf(s.form).last(), QStringLiteral("2007027 | 01 02 03 04 05 33 09 00"));
    QCOMPARE(s.form.history().key(1), QStringLiteral("A2007027"));
    QCOMPARE(s.form.history().subItem(1, 7), QStringLiteral("33")); // the pass ran
    QVERIFY(!s.form.history().add(QStringLiteral("A2007027"), QStringLiteral("x")));
    QVERIFY(s.form.history().add(QStringLiteral("A2007025"), QStringLiteral("2007025")));
}

void HistoryEditingTest::modifyToAnExistingIssueKeepsTheOldKey()
{
    StartedMainForm s(twoDraws);
    selectRow(s.form, 1);
    fillFormAdd(QStringLiteral("2007024"), QStringLiteral("01 02 03 04 05 06 07 08"));
    s.form.menu修改->trigger();
    QCOMPARE(rowsOf(s.form), (QStringList{"2007024 | 08 09 17 25 27 32 06 15", "2007024 | 01 02 03 04 05 06 07 08"}));
    QCOMPARE(s.form.history().key(1), QStringLiteral("A2007025"));
    QVERIFY(!s.form.history().add(QStringLiteral("A2007025"), QStringLiteral("2007025"))); // still blocked
    QVERIFY(s.app.messages.shown.isEmpty());
}

void HistoryEditingTest::importAppendsLinesAndCountsThem()
{
    StartedMainForm s(twoDraws);
    whenModalShown([](QWidget* window) {
        auto* form = qobject_cast<FormInput*>(window);
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), QStringLiteral("导入福彩开奖历史"));
        form->Text1->setPlainText(QStringLiteral("2007027 32 27 25 17 09 08 06\n"
                                                 "2007026,01,02,03,04,05,06,07,08\n"
                                                 "2007024 11 12 13 14 15 16 01 02\n"
                                                 "2007028 01 02 03 04 05 06\n"
                                                 "2007029\t01\t02\t03\t04\t05\t06\t07"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu导入->trigger();
    QCOMPARE(rowsOf(s.form), (QStringList{"2007024 | 08 09 17 25 27 32 06 15", "2007025 | 10 11 12 13 14 15 16 01",
                                          "2007027 | 08 09 17 25 27 32 06 00", "2007026 | 01 02 03 04 05 06 07 08"}));
    QCOMPARE(s.form.history().subItem(2, 9), QStringLiteral("00"));
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：4"));
    QVERIFY(s.app.messages.shown.isEmpty());
    QVERIFY(!s.app.process.ended());
}

void HistoryEditingTest::importClearAndCancel()
{
    StartedMainForm s(twoDraws);
    s.form.history().setSubItem(0, 2, QStringLiteral("stale"));
    bool stayedOpen = false;
    whenModalShown([&](QWidget* window) {
        auto* form = qobject_cast<FormInput*>(window);
        QTest::keyClicks(form->Text1, QStringLiteral("2007030 01 02 03 04 05 06 07 08"));
        QTest::mouseClick(form->Command3, Qt::LeftButton);
        stayedOpen = form->isVisible();
        QCOMPARE(form->Text1->toPlainText(), QString());
        QTest::keyClicks(form->Text1, QStringLiteral("2007031 01 02 03 04 05 06 07 08"));
        QTest::mouseClick(form->Command2, Qt::LeftButton);
    });
    s.form.menu导入->trigger();
    QVERIFY(stayedOpen);
    QCOMPARE(s.form.history().count(), 2);
    QCOMPARE(s.form.history().subItem(0, 2), QStringLiteral("08")); // the pass ran all the same
}

void HistoryEditingTest::importBoxWrapsAndEscapeCancels()
{
    TestApp app;
    DrawHistory history;
    FormInput form(app.context, history);
    form.show();
    form.Text1->setPlainText(QString(150, QLatin1Char('9'))); // too long for the box, and no blank in it
    QTRY_VERIFY(form.Text1->document()->lineCount() >= 2);
    QSignalSpy cancel(form.Command2, &QPushButton::clicked);
    QTest::keyClick(form.Text1, Qt::Key_Escape);
    QCOMPARE(cancel.count(), 1);
    QVERIFY(!form.isVisible());
}

void HistoryEditingTest::importOfASevenNumberLineEndsTheProgramUnsaved()
{
    StartedMainForm s(twoDraws);
    whenModalShown([](QWidget* window) {
        auto* form = qobject_cast<FormInput*>(window);
        form->Text1->setPlainText(QStringLiteral("2007026 08 09 17 25 27 32  06"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu导入->trigger();
    QCOMPARE(s.form.history().subItem(2, 1), QStringLiteral("08 09 17 25 27 32 06"));
    verifyEndedUnsaved(s);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    HistoryEditingTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_historyediting.moc"
