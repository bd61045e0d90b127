#include "app/mainform.h"
#include "history/formadd.h"
#include "history/forminput.h"
#include "historyrows.h"
#include "testapp.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <QtTest>

namespace {

const QStringList twoDraws{
    "2007024*=*08 09 17 25 27 32 06 15*=*08",
    "2007025*=*10 11 12 13 14 15 16 01*=*10",
};
const QStringList twoRows{"2007024 | 08 09 17 25 27 32 06 15", "2007025 | 10 11 12 13 14 15 16 01"};

// The run-time failure report came, the program asked to end, and the
// history file is as the start found it.
void verifyEndedUnsaved(StartedMainForm& s)
{
    QCOMPARE(s.app.process.exitCodes, QList<int>{1});
    QCOMPARE(s.app.messages.shown.size(), 1);
    QVERIFY(s.app.messages.shown[0].text.contains(QStringLiteral("下标越界")));
    QCOMPARE(s.app.historyBytes(), s.historyAtStart);
}

} // namespace

class HistoryEditingTest : public QObject {
    Q_OBJECT

private slots:
    void add_data();
    void add();
    void addOfSevenNumbersEndsTheProgramUnsaved();
    void modify_data();
    void modify();
    void importClearCancelAndImport();
    void importOfASevenNumberLineEndsTheProgramUnsaved();
};

void HistoryEditingTest::add_data()
{
    QTest::addColumn<QString>("issue");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<bool>("confirm"); // presses 添加, else 取消
    QTest::addColumn<QString>("message"); // a refusal: the window stays open
    QTest::addColumn<QStringList>("added"); // behind the two rows there

    QTest::newRow("a new draw, its reds sorted") << "2007026" << "8 32 17 25 27 9 6 15" << true << ""
                                                 << QStringList{"2007026 | 08 09 17 25 27 32 06 15"};
    QTest::newRow("an issue already there") << "2007025" << "01 02 03 04 05 06 07 08" << true << "" << QStringList{};
    QTest::newRow("cancelled") << "2007026" << "08 09 17 25 27 32 06 15" << false << "" << QStringList{};
    QTest::newRow("blank numbers") << "2007026" << "   " << true << "信息不完整。" << QStringList{};
    QTest::newRow("letters in the issue") << "2007x" << "08" << true << "信息必须都是数字。" << QStringList{};
}

void HistoryEditingTest::add()
{
    QFETCH(QString, issue);
    QFETCH(QString, numbers);
    QFETCH(bool, confirm);
    QFETCH(QString, message);
    QFETCH(QStringList, added);
    StartedMainForm s(twoDraws);
    s.form.history().setSubItem(1, 2, QStringLiteral("stale"));
    bool stayedOpen = false;
    whenWindowShown<FormAdd>([&](FormAdd* form) {
        QTest::keyClicks(form->Text1, issue);
        QTest::keyClicks(form->Text2, numbers);
        QTest::mouseClick(confirm ? form->Command1 : form->Command2, Qt::LeftButton);
        stayedOpen = form->isVisible();
        QCOMPARE(form->Text2->text(), numbers); // the input stays as typed
        if (stayedOpen)
            QTest::mouseClick(form->Command2, Qt::LeftButton);
    });
    s.form.menu添加->trigger();

    QCOMPARE(stayedOpen, !message.isEmpty());
    QCOMPARE(s.app.messages.shown.size(), int(stayedOpen));
    for (const ShownMessage& shown : s.app.messages.shown) {
        QCOMPARE(shown.icon, MessageIcon::Critical);
        QCOMPARE(shown.text, message);
    }
    QCOMPARE(rowsOf(s.form.history()), twoRows + added);
    QCOMPARE(s.form.history().subItem(1, 2), QStringLiteral("10")); // the pass ran, confirmed or not
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：%1").arg(2 + added.size()));
    QCOMPARE(s.app.historyBytes(), s.historyAtStart); // the file changes at exit only
}

void HistoryEditingTest::addOfSevenNumbersEndsTheProgramUnsaved()
{
    StartedMainForm s(twoDraws);
    whenWindowShown<FormAdd>([](FormAdd* form) {
        form->Text1->setText(QStringLiteral("2007026"));
        form->Text2->setText(QStringLiteral("08 09 17 25 27 32 06"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu添加->trigger();
    verifyEndedUnsaved(s);
    // The count panel is not reached.
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：2"));
}

void HistoryEditingTest::modify_data()
{
    QTest::addColumn<QString>("issue");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<QString>("modified");
    QTest::addColumn<QString>("key");

    QTest::newRow("a new issue") << "2007027" << "33 1 2 3 4 5 9 00" << "2007027 | 01 02 03 04 05 33 09 00"
                                 << "A2007027";
    // The key of the other row is refused: the row keeps its old one.
    QTest::newRow("an issue of another row") << "2007024" << "01 02 03 04 05 06 07 08"
                                             << "2007024 | 01 02 03 04 05 06 07 08" << "A2007025";
}

void HistoryEditingTest::modify()
{
    QFETCH(QString, issue);
    QFETCH(QString, numbers);
    QFETCH(QString, modified);
    QFETCH(QString, key);
    StartedMainForm s(twoDraws);
    s.form.menu修改->trigger(); // nothing selected: nothing opens
    const QRect cell = s.form.ListView1->visualRect(s.form.history().index(1, 0));
    QTest::mouseClick(s.form.ListView1->viewport(), Qt::LeftButton, {}, cell.center());
    QString shown;
    whenWindowShown<FormAdd>([&](FormAdd* form) {
        shown = form->Text1->text() + QStringLiteral(" | ") + form->Text2->text();
        form->Text1->setText(issue);
        form->Text2->setText(numbers);
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu修改->trigger();
    QCOMPARE(shown, twoRows[1]);
    QCOMPARE(rowsOf(s.form.history()), (QStringList{twoRows[0], modified}));
    QCOMPARE(s.form.history().key(1), key);
    QCOMPARE(s.form.history().subItem(1, 2), modified.section(' ', 2, 2)); // the pass ran
    QVERIFY(s.app.messages.shown.isEmpty());
}

void HistoryEditingTest::importClearCancelAndImport()
{
    StartedMainForm s(twoDraws);
    s.form.history().setSubItem(0, 2, QStringLiteral("stale"));
    bool wrapped = false;
    bool cancelled = false;
    whenWindowShown<FormInput>([&](FormInput* form) {
        // Too long for the box and no blank in it: it wraps all the same.
        form->Text1->setPlainText(QString(150, QLatin1Char('9')) + QStringLiteral("\n2007031 01 02 03 04 05 06 07 08"));
        wrapped = QTest::qWaitFor([&] { return form->Text1->document()->lineCount() >= 3; });
        QObject::connect(form->Command2, &QPushButton::clicked, [&] { cancelled = true; });
        QTest::keyClick(form->Text1, Qt::Key_Escape);
        if (form->isVisible())
            form->reject();
    });
    s.form.menu导入->trigger();
    QVERIFY(wrapped);
    QVERIFY(cancelled);
    QCOMPARE(s.form.history().subItem(0, 2), QStringLiteral("08")); // the pass ran all the same

    whenWindowShown<FormInput>([](FormInput* form) {
        QTest::keyClicks(form->Text1, QStringLiteral("2007030 01 02 03 04 05 06 07 08"));
        QTest::mouseClick(form->Command3, Qt::LeftButton);
        form->Text1->insertPlainText(QStringLiteral("2007027 32 27 25 17 09 08 06\n2007026,01,02,03,04,05,06,07,08"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu导入->trigger();
    QCOMPARE(rowsOf(s.form.history()),
             twoRows + QStringList({"2007027 | 08 09 17 25 27 32 06 00", "2007026 | 01 02 03 04 05 06 07 08"}));
    QCOMPARE(s.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：4"));
}

void HistoryEditingTest::importOfASevenNumberLineEndsTheProgramUnsaved()
{
    StartedMainForm s(twoDraws);
    whenWindowShown<FormInput>([](FormInput* form) {
        form->Text1->setPlainText(QStringLiteral("2007026 08 09 17 25 27 32  06"));
        QTest::mouseClick(form->Command1, Qt::LeftButton);
    });
    s.form.menu导入->trigger();
    verifyEndedUnsaved(s);
}

WINDOW_TEST_MAIN(HistoryEditingTest)

#include "tst_historyediting.moc"
