#include "forecast/batfilter.h"
#include "forecast/divide3remaind.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "testapp.h"

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

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

class FilterWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void batFilterImportsFiltersOnCopiesSavesAndClears();
    void remainderWindowImportsLoadsFiltersAndFails();
    void menuEntriesOpenTheWindowsModally();
};

void FilterWindowsTest::batFilterImportsFiltersOnCopiesSavesAndClears()
{
    TestApp app;
    const QString kept = lines({"01 02 03 04 05 06 07", " AB ", "", "09 10 11 12 号码"});
    const QString takenOut = lines({"01 02 03 04 05 06", "ab", "码"});
    const QString folder = app.programFolder();
    writeFile(QDir(folder).filePath("kept"), kept.toUtf8());
    writeFile(QDir(folder).filePath("out"), QStringEncoder("GB18030").encode(takenOut));
    DrawHistory history;
    BatFilter window(app.context, history);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    app.fileDialogs.nextName = QDir(folder).filePath("kept");
    window.Command3->click();
    app.fileDialogs.nextName = QDir(folder).filePath("out");
    window.Command6->click();
    QCOMPARE(window.RichTextBox1->Text(), kept);
    QCOMPARE(window.RichTextBox2->Text(), takenOut);
    // Neither a cancelled import nor a missing file changes a box.
    app.fileDialogs.nextName.clear();
    window.Command3->click();
    app.fileDialogs.nextName = QDir(folder).filePath("missing");
    window.Command6->click();
    for (int press = 0; press < 2; ++press) {
        window.Command7->click();
        QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("07\r\n09 10 11 12 号\r\n"));
    }
    QTest::keyClick(&window, Qt::Key_Escape); // no button cancels: nothing is pressed, the result stays
    app.fileDialogs.nextName = folder; // a folder: the save fails without a word
    window.Command11->click();
    app.fileDialogs.nextName = QDir(folder).filePath(QStringLiteral("result.txt"));
    window.Command11->click();
    QFile saved(app.fileDialogs.nextName);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QStringLiteral("07\r\n09 10 11 12 号\r\n").toUtf8());
    QCOMPARE(app.fileDialogs.asked, QStringList(6, QStringLiteral("*.txt|txt")));
    QVERIFY(app.messages.shown.isEmpty());

    window.RichTextBox1->setText(QStringList(600, QStringLiteral("01 02 03")).join("\r\n"));
    window.RichTextBox2->setText(QStringList(300, QStringLiteral("02")).join("\r\n"));
    // While the filter lets events run, with its button off, the user empties
    // both lists and presses the run button again.
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (window.Command7->isEnabled())
            return;
        watch.stop();
        window.Command1->click();
        window.Command4->click();
        window.Command7->click();
    });
    watch.start();
    window.Command7->click();
    QVERIFY(!watch.isActive()); // it ran during the filter
    QCOMPARE(window.RichTextBox3->Text(), QStringLiteral("01  03\r\n").repeated(600));
    QVERIFY(window.Command7->isEnabled());

    // Each box in turn: a button that selected or cleared another box leaves
    // this one unselected or already empty.
    for (RichTextBox* each : window.findChildren<RichTextBox*>())
        each->setText(QStringLiteral("01 02\r\n03"));
    for (const auto& [box, clear, selectAll] : {std::tuple{"RichTextBox1", "Command1", "Command2"},
                                                std::tuple{"RichTextBox2", "Command4", "Command5"},
                                                std::tuple{"RichTextBox3", "Command8", "Command9"}}) {
        auto* target = window.findChild<RichTextBox*>(box);
        window.findChild<QPushButton*>(selectAll)->click();
        QCOMPARE(target->SelLength(), 9);
        QTRY_VERIFY(target->hasFocus());
        window.findChild<QPushButton*>(clear)->click();
        QCOMPARE(target->Text(), QString());
    }
}

void FilterWindowsTest::remainderWindowImportsLoadsFiltersAndFails()
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
    const QString groups = lines({" " + pass, "01 03 05 07 09 11", "", "号码", other, pass, pass + "  06"});
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath("groups");
    writeFile(app.fileDialogs.nextName, QStringEncoder("GB18030").encode(groups));
    window.Command3->click();
    QCOMPARE(window.RichTextBox1->Text(), groups);
    window.Command4->click();
    QCOMPARE(window.RichTextBox3->Text(), lines({pass, other, pass, ""}));
    QVERIFY(window.Command4->isEnabled());

    // No draw to load from, or a newest draw of five reds that the filter runs short of.
    using Failure = std::pair<QStringList, RuntimeError::Code>;
    for (const auto& [groups, failure] : {Failure{{}, RuntimeError::IndexOutOfBounds},
                                          Failure{{"08 09 17 25 27"}, RuntimeError::SubscriptOutOfRange}}) {
        TestApp failing;
        DrawHistory drawn;
        forecasttest::addRows(drawn, groups);
        divide3remaind broken(failing.context, drawn);
        broken.show();
        broken.RichTextBox1->setText(pass);
        if (!failing.process.ended()) // the program has ended already
            broken.Command4->click();
        QCOMPARE(failing.process.exitCodes, QList<int>{1});
        QCOMPARE(failing.messages.shown.size(), 1);
        QCOMPARE(failing.messages.shown[0].text, runtimeFailureReport(RuntimeError(failure)));
        QCOMPARE(broken.RichTextBox3->Text(), QString());
    }
}

// Each window opens modally from its entry; Escape doesn't close it, as it
// has no button that cancels; every caption and button shows its whole text.
void FilterWindowsTest::menuEntriesOpenTheWindowsModally()
{
    StartedMainForm started({"2007024*=*02 05 08 11 14 17 03 00*=*02", "2007025*=*08 09 17 25 27 32 06 15*=*08"});
    QStringList opened;
    const auto look = [&](QDialog* window, const QString& seen) {
        QTest::keyClick(window, Qt::Key_Escape);
        opened.append(window->windowTitle() + seen + QString::number(window->isModal() && window->isVisible()));
        window->close();
        for (const QLabel* label : window->findChildren<QLabel*>())
            QVERIFY2(label->heightForWidth(label->width()) <= label->height()
                         && (label->wordWrap() || label->sizeHint().width() <= label->width()),
                     qPrintable(label->text()));
        for (const QPushButton* button : window->findChildren<QPushButton*>())
            QVERIFY2(button->sizeHint().width() <= button->width() + 8, qPrintable(button->text()));
    };
    whenWindowShown<divide3remaind>([&](divide3remaind* window) { look(window, window->Text1->text()); });
    started.form.menu除3余数预测_Click(); // the entry is hidden; its handler stays
    whenWindowShown<BatFilter>([&](BatFilter* window) { look(window, QString()); });
    started.form.menu号码组过滤->trigger();
    QCOMPARE(opened, (QStringList{"除3余数过滤08 09 17 25 27 321", "号码组过滤1"}));
}

WINDOW_TEST_MAIN(FilterWindowsTest)

#include "tst_filterwindows.moc"
