#include "forecast/batfilter.h"
#include "forecast/divide3remaind.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringEncoder>
#include <QtTest>

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

} // namespace

class FilterWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void batFilterTakesOutASecondPressAgreesAndSaves();
    void batFilterWorksOnCopiesWhileEventsRun();
    void importIntoTheBoxes_data();
    void importIntoTheBoxes();
    void clearAndSelectAll();
    void remainderWindowLoadsAndFilters();
    void remainderWindowFailures_data();
    void remainderWindowFailures();
    void menuEntriesOpenTheWindowsModally();
};

void FilterWindowsTest::batFilterTakesOutASecondPressAgreesAndSaves()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    window.RichTextBox1->setText(lines({"01 02 03 04 05 06 07", " AB ", "", "09 10 11 12 号"}));
    window.RichTextBox2->setText(lines({"01 02 03 04 05 06", "ab"}));
    for (int press = 0; press < 2; ++press) {
        window.Command7->click();
        QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("07\r\n09 10 11 12 号\r\n"));
    }
    app.fileDialogs.nextName = app.programFolder(); // a folder: the save fails without a word
    window.Command11->click();
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("result.txt"));
    window.Command11->click();
    QFile saved(app.fileDialogs.nextName);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QStringLiteral("07\r\n09 10 11 12 号\r\n").toUtf8());
    QCOMPARE(app.fileDialogs.asked, (QStringList{"*.txt|txt", "*.txt|txt"}));
    QVERIFY(app.messages.shown.isEmpty());
}

void FilterWindowsTest::batFilterWorksOnCopiesWhileEventsRun()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    window.RichTextBox1->setText(QStringList(600, QStringLiteral("01 02 03")).join("\r\n"));
    window.RichTextBox2->setText(QStringList(300, QStringLiteral("02")).join("\r\n"));
    // While the filter lets events run, with its button off, the user empties
    // both lists and presses the run button again.
    bool ranDuringFilter = false;
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (window.Command7->isEnabled())
            return;
        watch.stop();
        ranDuringFilter = true;
        window.Command1->click();
        window.Command4->click();
        window.Command7->click();
    });
    watch.start();
    window.Command7->click();
    QVERIFY(ranDuringFilter);
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("01  03\r\n").repeated(600));
    QVERIFY(window.Command7->isEnabled());
}

void FilterWindowsTest::importIntoTheBoxes_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("file"); // "utf8" or "gbk" names a file in that encoding
    QTest::addColumn<bool>("imported");
    QTest::newRow("UTF-8") << "BatFilter" << "Command3" << "RichTextBox1" << "utf8" << true;
    QTest::newRow("GBK") << "BatFilter" << "Command3" << "RichTextBox1" << "gbk" << true;
    QTest::newRow("GBK, second list") << "BatFilter" << "Command6" << "RichTextBox2" << "gbk" << true;
    QTest::newRow("GBK, remainder window") << "divide3remaind" << "Command3" << "RichTextBox1" << "gbk" << true;
    QTest::newRow("cancelled") << "BatFilter" << "Command3" << "RichTextBox1" << "" << false;
    QTest::newRow("no such file") << "BatFilter" << "Command6" << "RichTextBox2" << "missing" << false;
}

void FilterWindowsTest::importIntoTheBoxes()
{
    QFETCH(QString, window);
    QFETCH(QString, button);
    QFETCH(QString, box);
    QFETCH(QString, file);
    QFETCH(bool, imported);
    const QString text = QStringLiteral("号码 01 02 03 04 05 06\r\n07 08\r\n");
    TestApp app;
    for (const QString& encoding : {QStringLiteral("utf8"), QStringLiteral("gbk")}) {
        QFile written(QDir(app.programFolder()).filePath(encoding));
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.write(encoding == QLatin1String("gbk") ? QStringEncoder("GB18030").encode(text) : text.toUtf8());
    }
    app.fileDialogs.nextName = file.isEmpty() ? QString() : QDir(app.programFolder()).filePath(file);
    DrawHistory history;
    forecasttest::addRows(history, {"08 09 17 25 27 32 06 15"});
    std::unique_ptr<ModalWindow> shown;
    if (window == QLatin1String("BatFilter"))
        shown = std::make_unique<BatFilter>(app.context);
    else
        shown = std::make_unique<divide3remaind>(app.context, history);
    shown->show();
    auto* target = shown->findChild<RichTextBox*>(box);
    target->setText(QStringLiteral("before"));
    shown->findChild<QPushButton*>(button)->click();
    QCOMPARE(target->Text(), imported ? text : QStringLiteral("before"));
    QCOMPARE(app.fileDialogs.asked, QStringList{"*.txt|txt"});
}

void FilterWindowsTest::clearAndSelectAll()
{
    TestApp app;
    BatFilter window(app.context);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QList<RichTextBox*> boxes = window.findChildren<RichTextBox*>();
    for (const auto& [box, clear, selectAll] : {std::tuple{"RichTextBox1", "Command1", "Command2"},
                                                std::tuple{"RichTextBox2", "Command4", "Command5"},
                                                std::tuple{"RichTextBox3", "Command8", "Command9"}}) {
        for (RichTextBox* each : boxes)
            each->setText(QStringLiteral("01 02\r\n03"));
        auto* target = window.findChild<RichTextBox*>(box);
        window.findChild<QPushButton*>(selectAll)->click();
        QCOMPARE(target->SelStart(), 0);
        QCOMPARE(target->SelLength(), 9);
        QTRY_VERIFY(target->hasFocus());
        window.findChild<QPushButton*>(clear)->click();
        for (RichTextBox* each : boxes)
            QCOMPARE(each->Text(), each == target ? QString() : QStringLiteral("01 02\r\n03"));
    }
}

void FilterWindowsTest::remainderWindowLoadsAndFilters()
{
    TestApp app;
    DrawHistory history;
    forecasttest::addRows(history, {"01 04 07 10 13 16 02 00", "08 09 17 25 27 32 06 15", "02 05 08 11 14 17 03 00"});
    history.setText(1, QStringLiteral("2007009")); // the newest draw stands in the middle
    history.setSortOrder(1); // as a click on a header leaves it
    divide3remaind window(app.context, history);
    window.show();
    QCOMPARE(window.Text1->text(), QStringLiteral("08 09 17 25 27 32"));
    QCOMPARE(window.Text2->text(), QStringLiteral("2 0 2 1 0 2"));
    QCOMPARE(issuesOf(history), (QStringList{"2007009", "2007003", "2007001"}));
    // The shown remainders are not read again.
    window.Text2->setText(QStringLiteral("0 0 0 0 0 0"));
    window.RichTextBox3->setText(QStringLiteral("old result"));
    const QString pass = QStringLiteral("02 03 05 07 09 11");
    const QString other = QStringLiteral("05 06 08 10 12 14");
    window.RichTextBox1->setText(lines({" " + pass, "01 03 05 07 09 11", "", other, pass, pass + "  06"}));
    window.Command4->click();
    QCOMPARE(window.RichTextBox3->Text(), lines({pass, other, pass, ""}));
    QVERIFY(window.Command4->isEnabled());
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
    forecasttest::addRows(history, groups);
    divide3remaind window(app.context, history);
    window.show();
    window.RichTextBox1->setText(QStringLiteral("02 03 05 07 09 11"));
    if (!app.process.ended()) // the program has ended already
        window.Command4->click();
    QCOMPARE(app.process.exitCodes, QList<int>{1});
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].text, runtimeFailureReport(RuntimeError(RuntimeError::Code(failure))));
    QCOMPARE(window.RichTextBox3->Text(), QString());
}

// Each window opens modally from its entry; Escape doesn't close it, as it
// has no button that cancels; every caption and button shows its whole text.
void FilterWindowsTest::menuEntriesOpenTheWindowsModally()
{
    StartedMainForm started({"2007024*=*02 05 08 11 14 17 03 00*=*02", "2007025*=*08 09 17 25 27 32 06 15*=*08"});
    QStringList opened;
    QStringList cut;
    const auto look = [&](QDialog* window, const QString& seen) {
        QTest::keyClick(window, Qt::Key_Escape);
        opened.append(window->windowTitle() + seen + QString::number(window->isModal() && window->isVisible()));
        for (const QLabel* label : window->findChildren<QLabel*>()) {
            if (label->heightForWidth(label->width()) > label->height()
                || (!label->wordWrap() && label->sizeHint().width() > label->width()))
                cut.append(label->text());
        }
        for (const QPushButton* button : window->findChildren<QPushButton*>()) {
            if (button->sizeHint().width() > button->width() + 8)
                cut.append(button->text());
        }
        window->close();
    };
    whenWindowShown<divide3remaind>([&](divide3remaind* window) { look(window, window->Text1->text()); });
    started.form.menu除3余数预测_Click(); // the entry is hidden; its handler stays
    whenWindowShown<BatFilter>([&](BatFilter* window) { look(window, QString()); });
    started.form.menu号码组过滤->trigger();
    QCOMPARE(opened, (QStringList{"除3余数过滤08 09 17 25 27 321", "号码组过滤1"}));
    QCOMPARE(cut, QStringList());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    FilterWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_filterwindows.moc"
