#include "forecast/batfilter.h"
#include "forecast/divide3remaind.h"
#include "forecast/groupfilter.h"
#include "forecast/richtextbox.h"
#include "platform/runtimefailure.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringEncoder>
#include <QtTest>

namespace {

void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(path));
    file.write(bytes);
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

const QString newest = QStringLiteral("08 09 17 25 27 32 06 15");

void addDraw(DrawHistory& history, const QString& issue, const QString& group)
{
    history.add(DrawHistory::keyOf(issue), issue);
    history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
}

// Every caption and button shows its whole text.
void verifyNothingIsCut(const QWidget& window)
{
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->wordWrap())
            QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(), qPrintable(label->text()));
    }
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        QVERIFY2(button->sizeHint().width() <= button->width() + 8, qPrintable(button->text()));
}

} // namespace

class FilterWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void batFilterTakesOutAndASecondPressAgrees();
    void batFilterWorksOnTheTextsAsTheyWereWhileEventsRun();
    void importReadsUtf8AndGbkFiles_data();
    void importReadsUtf8AndGbkFiles();
    void cancelledOrFailedImportLeavesTheBox();
    void saveWritesTheResultBox();
    void clearAndSelectAll_data();
    void clearAndSelectAll();
    void escapeClosesNeither();
    void remainderWindowShowsTheNewestDraw();
    void remainderFilterButtonKeepsPassingLines();
    void remainderWindowFailures_data();
    void remainderWindowFailures();
    void menuEntriesOpenTheWindowsModally();
    void nothingIsCut();
};

void FilterWindowsTest::batFilterTakesOutAndASecondPressAgrees()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    window.RichTextBox1->setText(lines({"01 02 03 04 05 06 07", " AB ", "", "09 10 11 12 13 14"}));
    window.RichTextBox2->setText(lines({"01 02 03 04 05 06", "ab"}));
    click(window.Command7);
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("07\r\n09 10 11 12 13 14\r\n"));
    window.RichTextBox3->setText(QStringLiteral("changed"));
    click(window.Command7);
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("07\r\n09 10 11 12 13 14\r\n"));
    QVERIFY(window.Command7->isEnabled());
    QVERIFY(app.messages.shown.isEmpty());
}

void FilterWindowsTest::batFilterWorksOnTheTextsAsTheyWereWhileEventsRun()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    QStringList kept;
    QStringList takenOut;
    for (int i = 0; i < 600; ++i) {
        kept.append(QString::asprintf("%02d %02d %02d", i % 33 + 1, i % 16 + 1, i % 7));
        if (i % 3 == 0)
            takenOut.append(QString::asprintf("%02d %02d", i % 33 + 1, i % 16 + 1));
    }
    const QString expected = groupfilter::filterGroupsSequentially(lines(kept), lines(takenOut), {});
    window.RichTextBox1->setText(lines(kept));
    window.RichTextBox2->setText(lines(takenOut));

    // While the filter yields, with its button off, the user empties both
    // lists and presses the run button again.
    bool ranDuringFilter = false;
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (window.Command7->isEnabled())
            return;
        watch.stop();
        ranDuringFilter = true;
        click(window.Command1);
        click(window.Command4);
        click(window.Command7);
    });
    watch.start();
    click(window.Command7);
    QVERIFY(ranDuringFilter);
    QCOMPARE(window.RichTextBox1->Text(), QString());
    QCOMPARE(window.RichTextBox3->Text(), expected);
    QVERIFY(window.Command7->isEnabled());
}

void FilterWindowsTest::importReadsUtf8AndGbkFiles_data()
{
    const QString text = QStringLiteral("号码 01 02 03 04 05 06\r\n07 08\r\n");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("box");
    const QByteArray gbk = QStringEncoder("GB18030").encode(text);
    QTest::newRow("UTF-8 into the first list") << text.toUtf8() << "Command3" << "RichTextBox1";
    QTest::newRow("GBK into the first list") << gbk << "Command3" << "RichTextBox1";
    QTest::newRow("GBK into the list to take out") << gbk << "Command6" << "RichTextBox2";
    QTest::newRow("UTF-8 into the remainder window") << text.toUtf8() << "Command3" << "divide3remaind";
}

void FilterWindowsTest::importReadsUtf8AndGbkFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, button);
    QFETCH(QString, box);
    TestApp app;
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("groups.txt"));
    writeBytes(app.fileDialogs.nextName, bytes);
    DrawHistory history;
    addDraw(history, "2007025", newest);
    std::unique_ptr<ModalWindow> window;
    if (box == QLatin1String("divide3remaind"))
        window = std::make_unique<divide3remaind>(app.context, history);
    else
        window = std::make_unique<BatFilter>(app.context);
    window->show();
    auto* target = window->findChild<RichTextBox*>(box == QLatin1String("divide3remaind") ? "RichTextBox1" : box);
    target->setText(QStringLiteral("before"));
    click(window->findChild<QPushButton*>(button));
    QCOMPARE(target->Text(), QStringLiteral("号码 01 02 03 04 05 06\r\n07 08\r\n"));
    QCOMPARE(app.fileDialogs.asked, QStringList{"*.txt|txt"});
}

void FilterWindowsTest::cancelledOrFailedImportLeavesTheBox()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    window.RichTextBox1->setText(QStringLiteral("kept"));
    click(window.Command3); // cancelled: no name
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("missing.txt"));
    click(window.Command3);
    QCOMPARE(window.RichTextBox1->Text(), QStringLiteral("kept"));
    QCOMPARE(app.fileDialogs.asked.size(), 2);
    QVERIFY(app.messages.shown.isEmpty());
}

void FilterWindowsTest::saveWritesTheResultBox()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    window.RichTextBox1->setText(lines({"01 02", "号 03"}));
    click(window.Command7);
    click(window.Command11); // cancelled
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("result.txt"));
    click(window.Command11);
    QCOMPARE(bytesOf(app.fileDialogs.nextName), QStringLiteral("01 02\r\n号 03\r\n").toUtf8());
    QCOMPARE(app.fileDialogs.asked, (QStringList{"*.txt|txt", "*.txt|txt"}));
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("01 02\r\n号 03\r\n"));
}

void FilterWindowsTest::clearAndSelectAll_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("clear");
    QTest::addColumn<QString>("selectAll");
    QTest::newRow("first list") << "RichTextBox1" << "Command1" << "Command2";
    QTest::newRow("list to take out") << "RichTextBox2" << "Command4" << "Command5";
    QTest::newRow("result") << "RichTextBox3" << "Command8" << "Command9";
}

void FilterWindowsTest::clearAndSelectAll()
{
    QFETCH(QString, box);
    QFETCH(QString, clear);
    QFETCH(QString, selectAll);
    TestApp app;
    BatFilter window(app.context);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QList<RichTextBox*> boxes = window.findChildren<RichTextBox*>();
    for (RichTextBox* each : boxes)
        each->setText(QStringLiteral("01 02\r\n03"));
    auto* target = window.findChild<RichTextBox*>(box);
    click(window.findChild<QPushButton*>(selectAll));
    QCOMPARE(target->SelStart(), 0);
    QCOMPARE(target->SelLength(), 9);
    QTRY_VERIFY(target->hasFocus());
    click(window.findChild<QPushButton*>(clear));
    for (RichTextBox* each : boxes)
        QCOMPARE(each->Text(), each == target ? QString() : QStringLiteral("01 02\r\n03"));
}

void FilterWindowsTest::escapeClosesNeither()
{
    TestApp app;
    DrawHistory history;
    addDraw(history, "2007025", newest);
    BatFilter groups(app.context);
    divide3remaind remainders(app.context, history);
    for (QDialog* window : std::initializer_list<QDialog*>{&groups, &remainders}) {
        window->show();
        QTest::keyClick(window, Qt::Key_Escape);
        QVERIFY(window->isVisible());
    }
}

void FilterWindowsTest::remainderWindowShowsTheNewestDraw()
{
    TestApp app;
    DrawHistory history;
    addDraw(history, "2007023", "01 04 07 10 13 16 02 00");
    addDraw(history, "2007025", newest);
    addDraw(history, "2007024", "02 05 08 11 14 17 03 00");
    divide3remaind window(app.context, history);
    QCOMPARE(window.windowTitle(), QStringLiteral("除3余数过滤"));
    QCOMPARE(window.Text1->text(), QStringLiteral("08 09 17 25 27 32"));
    QCOMPARE(window.Text2->text(), QStringLiteral("2 0 2 1 0 2"));
    QCOMPARE(issuesOf(history), (QStringList{"2007025", "2007024", "2007023"}));
    // Editing the shown remainders changes nothing: they were read at load.
    window.Text2->setText(QStringLiteral("0 0 0 0 0 0"));
    window.RichTextBox1->setText(QStringLiteral("02 03 05 07 09 11"));
    click(window.Command4);
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("02 03 05 07 09 11\r\n"));
}

void FilterWindowsTest::remainderFilterButtonKeepsPassingLines()
{
    TestApp app;
    DrawHistory history;
    addDraw(history, "2007025", newest);
    divide3remaind window(app.context, history);
    window.show();
    window.RichTextBox3->setText(QStringLiteral("old result"));
    window.RichTextBox1->setText(lines({"02 03 05 07 09 11", "01 03 05 07 09 11", "02 03 05 07 09 11  06",
                                        "  02 03 05 07 09 11 ", ""}));
    click(window.Command4);
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("02 03 05 07 09 11\r\n02 03 05 07 09 11\r\n"));
    QVERIFY(window.Command4->isEnabled());
    window.RichTextBox1->setText(QStringLiteral("  "));
    click(window.Command4);
    QCOMPARE(window.RichTextBox3->Text(), QString());
}

void FilterWindowsTest::remainderWindowFailures_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<int>("failure");
    QTest::newRow("empty history, at load") << QStringList() << int(RuntimeError::IndexOutOfBounds);
    QTest::newRow("five reds, at the filter") << QStringList{"08 09 17 25 27"} << int(RuntimeError::SubscriptOutOfRange);
}

void FilterWindowsTest::remainderWindowFailures()
{
    QFETCH(QStringList, groups);
    QFETCH(int, failure);
    TestApp app;
    DrawHistory history;
    for (const QString& group : groups)
        addDraw(history, "2007025", group);
    divide3remaind window(app.context, history);
    window.show();
    window.RichTextBox1->setText(QStringLiteral("02 03 05 07 09 11"));
    if (!app.process.ended()) // the real program has ended already
        click(window.Command4);
    QCOMPARE(app.process.exitCodes, QList<int>{1});
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].text, runtimeFailureReport(RuntimeError(RuntimeError::Code(failure))));
    QCOMPARE(window.RichTextBox3->Text(), QString());
}

void FilterWindowsTest::menuEntriesOpenTheWindowsModally()
{
    StartedMainForm started({"2007024*=*02 05 08 11 14 17 03 00*=*02", "2007025*=*08 09 17 25 27 32 06 15*=*08"});
    QString reds;
    bool remainderModal = false;
    whenWindowShown<divide3remaind>([&](divide3remaind* window) {
        remainderModal = window->isModal();
        reds = window->Text1->text();
        window->close();
    });
    started.form.menu除3余数预测_Click(); // the entry is hidden, its handler is kept
    QVERIFY(remainderModal);
    QCOMPARE(reds, QStringLiteral("08 09 17 25 27 32"));
    QVERIFY(!started.form.menu除3余数预测->isVisible());

    bool groupsModal = false;
    whenWindowShown<BatFilter>([&](BatFilter* window) {
        groupsModal = window->isModal();
        window->close();
    });
    started.form.menu号码组过滤->trigger();
    QVERIFY(groupsModal);
    QVERIFY(started.app.messages.shown.isEmpty());
}

void FilterWindowsTest::nothingIsCut()
{
    TestApp app;
    DrawHistory history;
    addDraw(history, "2007025", newest);
    BatFilter groups(app.context);
    divide3remaind remainders(app.context, history);
    verifyNothingIsCut(groups);
    verifyNothingIsCut(remainders);
    QVERIFY(remainders.Label5->heightForWidth(remainders.Label5->width()) <= remainders.Label5->height());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    FilterWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_filterwindows.moc"
