#include "forecast/forecastbet.h"
#include "forecast/forecastfilter.h"
#include "forecast/forecastnormal.h"
#include "forecast/historycheck.h"
#include "forecast/resultoutput.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "platform/runtimefailure.h"
#include "testapp.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

using namespace forecasttest;

namespace {

const QString a = QStringLiteral("03 09 17 20 27 30");
const QString b = QStringLiteral("01 05 09 12 20 33");
const QString notNumeric = QStringLiteral("每次预测的号码数，必须是数字！");
const QString outOfRange = QStringLiteral("每次预测的号码数，必须是1-10000的数字！");

void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

// How many of the numbers stand among the reds of a result line.
int hits(const QString& line, const QString& numbers)
{
    const QStringList reds = line.left(17).split(QLatin1Char(' '));
    const QStringList wanted = numbers.split(QLatin1Char(' '));
    return int(std::ranges::count_if(wanted, [&](const QString& n) { return reds.contains(n); }));
}

// One of the three forecast windows, shown, over full ranges and a history of these rows.
struct Forecast {
    explicit Forecast(const QString& kind = QStringLiteral("ForecastNormal"), const QStringList& rows = {})
        : kind(kind)
    {
        app.context.ranges = fullRanges();
        addRows(history, rows);
        open();
    }
    // Closes the open window, which stores what it keeps, and opens a new one.
    void open()
    {
        if (form)
            form->reject();
        if (kind == "ForecastFilter")
            form = std::make_unique<ForecastFilter>(app.context, history);
        else if (kind == "ForecastBet")
            form = std::make_unique<ForecastBet>(app.context, history);
        else
            form = std::make_unique<ForecastNormal>(app.context, history);
        form->show();
    }
    QLineEdit* text3() const { return form->findChild<QLineEdit*>(QStringLiteral("Text3")); }
    QComboBox* betCount() const { return form->findChild<QComboBox*>(QStringLiteral("Combo1")); }
    QString box() const { return form->RichTextBox1->Text(); }
    // Fills in the count and clicks the run button, the focus away from Text2; gives the lines of the box.
    QStringList run(const QString& count)
    {
        form->Text2->setText(count);
        form->Command1->setFocus();
        click(form->Command1);
        return box().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    }

    QString kind;
    TestApp app;
    DrawHistory history;
    std::unique_ptr<ForecastWindow> form;
};

} // namespace

class ForecastWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void boxInsertsAtTheCaret_data();
    void boxInsertsAtTheCaret();
    void runsAndRefusalsKeepTheTexts_data();
    void runsAndRefusalsKeepTheTexts();
    void runsFillTheBoxAndItsButtonsWorkOnIt();
    void highestCountRunsWithItsNoticeShownAndItsButtonBlocked();
    void betFillsText3FromTheLatestDraws();
    void historyCheckReadsTheConditionsAtThePress_data();
    void historyCheckReadsTheConditionsAtThePress();
};

void ForecastWindowsTest::boxInsertsAtTheCaret_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("inserted");
    QTest::addColumn<QString>("result");
    QTest::newRow("beyond the end is the end; lone LF and CR become CR LF")
        << "a\nb\rc" << 99 << "\n" << "a\r\nb\r\nc\r\n";
    QTest::newRow("start of the second line") << "ab\r\ncd" << 4 << "X" << "ab\r\nXcd";
    QTest::newRow("between CR and LF: at the break") << "ab\r\ncd" << 3 << "X" << "abX\r\ncd";
}

void ForecastWindowsTest::boxInsertsAtTheCaret()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(QString, inserted);
    QFETCH(QString, result);
    RichTextBox box;
    box.setText(text);
    box.setSelStart(start);
    box.setSelText(inserted);
    QCOMPARE(box.Text(), result);
}

void ForecastWindowsTest::runsAndRefusalsKeepTheTexts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("max"); // of ball 3, whose minimum is 2
    QTest::addColumn<QString>("numbers"); // Text3 and the bet count, where the window has them
    QTest::addColumn<QString>("betCount");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("outcome"); // the message, or the hits of every line, or no line at all
    QTest::addColumn<QString>("rewritten"); // Text3 afterwards
    const QString overflow = runtimeFailureReport(RuntimeError(RuntimeError::Overflow));
    const QString badList = QStringLiteral("“红色球不允许出现的号码”设置不合理，或者1-6号球设置的范围不合理！");
    const QString badBet = QStringLiteral("要求出现投注号码的个数不合理，或者投注号码不规范！\r\n请重新选择和设置！");
    const QString normal = QStringLiteral("ForecastNormal");
    const QString filter = QStringLiteral("ForecastFilter");
    const QString bet = QStringLiteral("ForecastBet");
    QTest::newRow("0.4 rounds to 0") << normal << 33 << "" << "" << "0.4" << outOfRange << "";
    QTest::newRow("10001") << normal << 33 << "" << "" << "10001" << outOfRange << "";
    QTest::newRow("beyond 32 bits ends the program") << normal << 33 << "" << "" << "99999999999" << overflow << "";
    // The window's own numbers are checked before the count.
    QTest::newRow("filter: empty list, a minimum above its maximum") << filter << 1 << "" << "" << "x" << badList << "";
    QTest::newRow("filter: the whole range of a ball, blanks around")
        << filter << 3 << " 03  02 " << "" << "x" << badList << " 03  02 ";
    QTest::newRow("filter: a digit takes characters, not a number")
        << filter << 3 << "2 3" << "" << "x" << notNumeric << "2 3";
    QTest::newRow("bet: a bad token, too few left") << bet << 33 << "01 x5 03" << "2个" << "x" << badBet << "01";
    QTest::newRow("bet: a range needs its upper count") << bet << 33 << "02 08 26" << "2-4个" << "x" << badBet
                                                        << "02 08 26";
    QTest::newRow("bet: numbers enough, then the count") << bet << 33 << "5" << "1个" << "x" << notNumeric << "05";
    QTest::newRow("bet: 34 stops") << bet << 33 << "05 34 06" << "1个" << "2" << "hits 1-1" << "05";
    QTest::newRow("bet: 0 stops") << bet << 33 << "05 0 06" << "1个" << "2" << "hits 1-1" << "05";
    QTest::newRow("bet: exact three, two digits each") << bet << 33 << "1 2 3" << "3个" << "50" << "hits 3-3"
                                                       << "01 02 03";
    QTest::newRow("bet: repeats count twice, decimals round")
        << bet << 33 << " 02  02 2.6 " << "2个" << "20" << "hits 2-2" << "02 02 03";
    QTest::newRow("bet: one to two, the blue no hit") << bet << 33 << "02 08 26" << "1-2个" << "500" << "hits 1-2"
                                                      << "02 08 26";
    // The group with 01 comes as the 2001st candidate, too late.
    QTest::newRow("bet: 2000 attempts, one group")
        << bet << 33 << "01" << "1个" << "1" << "无法预测，设置的条件不合理，请重新设置！" << "01";
    QTest::newRow("bet: beyond the ranges, a batch") << bet << 33 << "33" << "1个" << "5" << "no line" << "33";
}

void ForecastWindowsTest::runsAndRefusalsKeepTheTexts()
{
    QFETCH(QString, kind);
    QFETCH(int, max);
    QFETCH(QString, numbers);
    QFETCH(QString, betCount);
    QFETCH(QString, count);
    QFETCH(QString, outcome);
    QFETCH(QString, rewritten);
    Forecast w(kind);
    QVERIFY(QTest::qWaitForWindowActive(w.form.get()));
    w.app.context.ranges.min(3) = 2;
    w.app.context.ranges.max(3) = max;
    w.app.context.ranges.max(6) = 32;
    for (int attempt = 0; numbers == "01" && attempt <= 2000; ++attempt)
        queueGroup(w.app.random, {attempt < 2000 ? 3 : 1, 9, 17, 20, 27, 30}, 5);
    if (w.text3())
        w.text3()->setText(numbers);
    if (w.betCount())
        w.betCount()->setCurrentText(betCount);
    w.form->Check1->setChecked(true);
    w.form->Check2->setChecked(true);
    w.form->RichTextBox1->setText(QStringLiteral("earlier\r\n"));
    const QStringList lines = w.run(count);
    QCOMPARE(w.app.process.ended(), count == "99999999999");
    QCOMPARE(w.app.random.queued.size(), size_t(numbers == "01" ? 14 : 0));
    QVERIFY(w.form->Command1->isEnabled());
    if (outcome.startsWith(QStringLiteral("hits "))) {
        QVERIFY(w.app.messages.shown.isEmpty() && !lines.isEmpty());
        for (const QString& line : lines) {
            const int found = hits(line, rewritten);
            QVERIFY2(found >= outcome[5].digitValue() && found <= outcome[7].digitValue(), qPrintable(line));
        }
    } else if (outcome == "no line") {
        QVERIFY(w.app.messages.shown.isEmpty() && lines.isEmpty());
    } else {
        QCOMPARE(w.app.messages.shown.size(), 1);
        QCOMPARE(w.app.messages.shown[0].icon, MessageIcon::Critical);
        QCOMPARE(w.app.messages.shown[0].text, outcome);
        if (outcome == notNumeric || outcome == outOfRange)
            QTRY_VERIFY(w.form->Text2->hasFocus());
        QCOMPARE(w.box(), QStringLiteral("earlier\r\n"));
    }

    // The texts, Text3 as the check rewrote it, come back at the next opening;
    // the ticks start empty.
    w.open();
    QVERIFY(!w.form->Label4->isVisible());
    QCOMPARE(w.form->Text2->text(), count);
    QVERIFY(!w.form->Check1->isChecked() && !w.form->Check2->isChecked());
    if (w.text3())
        QCOMPARE(w.text3()->text(), rewritten);
    if (w.betCount()) {
        // The entries in their order; the store keeps the entry's place, not its text.
        QStringList counts;
        for (int i = 0; i < w.betCount()->count(); ++i)
            counts << w.betCount()->itemText(i);
        QCOMPARE(counts.join(' '), "1个 2个 3个 4个 5个 1-2个 1-3个 1-4个 1-5个 2-3个 2-4个 2-5个 3-4个 3-5个 4-5个");
        QCOMPARE(w.app.context.settings.read("ForecastBet", "投注个数", ""), QString::number(counts.indexOf(betCount)));
        QCOMPARE(w.betCount()->currentText(), betCount);
    }
}

void ForecastWindowsTest::runsFillTheBoxAndItsButtonsWorkOnIt()
{
    Forecast w(QStringLiteral("ForecastNormal"), {"08 09 17 25 27 32 06 15"});
    QVERIFY(QTest::qWaitForWindowActive(w.form.get()));
    w.form->Check1->setChecked(true);
    w.form->Check2->setChecked(true);
    // The first candidate repeats the past draw, blue and all; the second is new.
    queueGroup(w.app.random, {8, 9, 17, 25, 27, 32}, 6);
    queueGroup(w.app.random, {3, 9, 17, 20, 27, 30}, 6);
    click(w.form->Command1);
    // The caret elsewhere: the next line still goes behind the last.
    w.form->RichTextBox1->setSelStart(0);
    queueGroup(w.app.random, {1, 5, 9, 12, 20, 33}, 7);
    click(w.form->Command1);
    QCOMPARE(w.box(), a + "  06\r\n" + b + "  07\r\n");

    // A batch replaces the box.
    w.form->Check1->setChecked(false);
    queueGroup(w.app.random, {1, 5, 9, 12, 20, 33});
    queueGroup(w.app.random, {3, 9, 17, 20, 27, 30});
    queueGroup(w.app.random, {1, 5, 9, 12, 20, 33});
    w.run(QStringLiteral("3"));
    QCOMPARE(w.box(), b + "\r\n" + a + "\r\n" + b + "\r\n");
    click(w.form->Command5); // takes out repeats
    QVERIFY(w.form->Command5->isEnabled());
    QCOMPARE(w.box(), b + "\r\n" + a);
    QCOMPARE(w.app.messages.shown.size(), 1);
    // No break is left at the end, so a single group joins the last line.
    queueGroup(w.app.random, {2, 9, 17, 25, 27, 32});
    w.run(QStringLiteral("1"));
    const QString joined = b + "\r\n" + a + "02 09 17 25 27 32\r\n";
    QTest::keyClick(w.form->RichTextBox1, Qt::Key_Escape); // the window has no button that closes it
    QVERIFY(w.form->isVisible());

    click(w.form->Command3);
    QCOMPARE(w.app.clipboard.contents, joined);
    click(w.form->Command4);
    const QString document = QDir(w.app.programFolder()).filePath(QStringLiteral("PrintTemp.doc"));
    QCOMPARE(w.app.launcher.documents, QStringList{document});
    QFile file(document);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), resultoutput::printDocument(joined));
    click(w.form->Command2);
    QCOMPARE(w.box(), QString());
}

void ForecastWindowsTest::highestCountRunsWithItsNoticeShownAndItsButtonBlocked()
{
    // The filter window, whose list is searched for each red's two digits:
    // "2" forbids nothing, and any separator will do.
    Forecast w(QStringLiteral("ForecastFilter"));
    w.text3()->setText(QStringLiteral("2 08,26"));
    w.form->Check1->setChecked(true);
    int looks = 0;
    int wrong = 0;
    QTimer watcher;
    connect(&watcher, &QTimer::timeout, [&] {
        ++looks;
        wrong += !w.form->Label4->isVisible() || w.form->Command1->isEnabled();
        if (looks == 6) // after the 5000th group: the list is read afresh for each red
            w.text3()->setText(QStringLiteral("2 08,26,01"));
    });
    watcher.start(0);
    // The highest count, reached by rounding half to even.
    const QStringList lines = w.run(QStringLiteral("10000.5"));
    watcher.stop();
    // Events ran before the first group and after every 1000th.
    QCOMPARE(looks, 11);
    QCOMPARE(wrong, 0);
    QVERIFY(!w.form->Label4->isVisible());
    QVERIFY(w.form->Command1->isEnabled());
    QCOMPARE(w.box().count(QStringLiteral("\r\n")), 10000);
    for (const QString& line : lines)
        QVERIFY2(hits(line, QStringLiteral("08 26")) == 0, qPrintable(line));
    QVERIFY(lines.mid(0, 5000).filter(QRegularExpression(QStringLiteral("^01 "))).size() > 100);
    QVERIFY(lines.mid(5000).filter(QRegularExpression(QStringLiteral("^01 "))).isEmpty());
    QVERIFY(!lines.filter(QRegularExpression(QStringLiteral("^(.. )*02 "))).isEmpty());
    QVERIFY(!lines.filter(QRegularExpression(QStringLiteral("  08$"))).isEmpty());
}

void ForecastWindowsTest::betFillsText3FromTheLatestDraws()
{
    // The five newest draws leave 27 numbers, 80 characters, of which Text3
    // keeps 70; the sixth draw doesn't count.
    Forecast w(QStringLiteral("ForecastBet"), QStringList(6, QStringLiteral("01 02 03 04 05 06 07 00")));
    w.history.setSubItem(0, DrawHistory::GroupSubItem, QStringLiteral("08 09 10 11 12 13 14 00"));
    auto* fill = w.form->findChild<QPushButton*>(QStringLiteral("Command6"));
    click(fill);
    QCOMPARE(w.text3()->text(),
             QStringLiteral("07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 3"));
    // With four draws the list's own failure ends the program.
    w.history.removeAt(0);
    w.history.removeAt(0);
    click(fill);
    QCOMPARE(w.app.process.exitCodes, QList<int>{1});
}

void ForecastWindowsTest::historyCheckReadsTheConditionsAtThePress_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("numbers"); // Text3 and the bet count, where the window has them
    QTest::addColumn<QString>("betCount");
    QTest::addColumn<int>("groups"); // that pass, the first draw with them; -1: the list's message
    QTest::addColumn<QString>("rewritten"); // Text3 as the check read it
    // The ranges leave the one group of the first draw; the second draw is out of them.
    QTest::newRow("general") << "ForecastNormal" << "" << "" << 1 << "";
    // The list's check takes tokens out of the ranges' texts; the draw rule
    // finds "09" anywhere in the text.
    QTest::newRow("filter: 09 forbidden by the draw rule only") << "ForecastFilter" << "x09" << "" << 0 << "x09";
    QTest::newRow("filter: the range of ball 2 forbidden") << "ForecastFilter" << "09" << "" << -1 << "09";
    // Read as typed, "3" and "2" would both be found in the group.
    QTest::newRow("bet: the numbers as the run reads them") << "ForecastBet" << "3 2" << "1个" << 1 << "03 02";
}

void ForecastWindowsTest::historyCheckReadsTheConditionsAtThePress()
{
    QFETCH(QString, kind);
    QFETCH(QString, numbers);
    QFETCH(QString, betCount);
    QFETCH(int, groups);
    QFETCH(QString, rewritten);
    Forecast w(kind, {"03 09 17 20 27 30 05 00", "01 05 09 12 20 33 07 00"});
    QVERIFY(QTest::qWaitForWindowActive(w.form.get()));
    const QList<int> reds{3, 9, 17, 20, 27, 30};
    std::ranges::copy(reds, w.app.context.ranges.BallMin.begin());
    std::ranges::copy(reds, w.app.context.ranges.BallMax.begin());
    if (w.text3())
        w.text3()->setText(numbers);
    if (w.betCount())
        w.betCount()->setCurrentText(betCount);
    w.form->Check1->setChecked(true);
    w.form->RichTextBox1->setText(QStringLiteral("earlier\r\n"));
    QPushButton* check = w.form->historyCheckButton;
    QVERIFY(check->y() > w.form->Command5->geometry().bottom() && w.form->rect().contains(check->geometry()));

    // While events run the button waits, and what is typed meanwhile does
    // not reach the check.
    int looks = 0;
    int wrong = 0;
    QString text3 = w.text3() ? w.text3()->text() : QString();
    QTimer watcher;
    connect(&watcher, &QTimer::timeout, [&] {
        wrong += check->isEnabled() ? 1 : 0;
        if (looks++ == 0 && w.text3())
            text3 = w.text3()->text(), w.text3()->clear();
    });
    watcher.start(0);
    click(check);
    watcher.stop();
    const bool reported = groups >= 0;
    const QString report = reported ? historycheck::reportText({2, groups, 2, groups}, groups, true)
                                    : QStringLiteral("“红色球不允许出现的号码”设置不合理，或者1-6号球设置的范围不合理！");
    QCOMPARE(looks, reported ? 28 : 0);
    QCOMPARE(wrong, 0);
    QVERIFY(check->isEnabled());
    QCOMPARE(w.app.messages.shown.size(), 1);
    QCOMPARE(w.app.messages.shown[0].icon, reported ? MessageIcon::Information : MessageIcon::Critical);
    QCOMPARE(w.app.messages.shown[0].text, report);
    QCOMPARE(w.box(), QStringLiteral("earlier\r\n"));
    QCOMPARE(reported || !w.text3() ? text3 : w.text3()->text(), rewritten);
}

WINDOW_TEST_MAIN(ForecastWindowsTest)

#include "tst_forecastwindows.moc"
