#include "forecast/forecastbet.h"
#include "forecast/forecastfilter.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "testapp.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

struct Draws : TestApp {
    Draws() { context.ranges = forecasttest::fullRanges(); }
    DrawHistory history;
};

// Fills in the numbers and the group count, ticks the blue and runs; gives the lines of the box.
template <class Window>
QStringList run(Window& form, const QString& numbers, const QString& count, bool blue = false)
{
    form.Text3->setText(numbers);
    form.Text2->setText(count);
    form.Check1->setChecked(blue);
    form.Command1->click();
    return form.RichTextBox1->Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

// How many of the numbers stand among the reds of a result line.
int hits(const QString& line, const QString& numbers)
{
    const QStringList reds = line.left(17).split(QLatin1Char(' '));
    const QStringList wanted = numbers.split(QLatin1Char(' '));
    return int(std::ranges::count_if(wanted, [&](const QString& n) { return reds.contains(n); }));
}

} // namespace

class ForecastRulesTest : public QObject {
    Q_OBJECT

private slots:
    void filterChecksItsListBeforeTheCount_data();
    void filterChecksItsListBeforeTheCount();
    void filterKeepsForbiddenRedsOutButNotBlues();
    void betRuns_data();
    void betRuns();
    void betFillsText3FromTheLatestDrawsAndKeepsIt();
};

void ForecastRulesTest::filterChecksItsListBeforeTheCount_data()
{
    QTest::addColumn<QString>("forbidden");
    QTest::addColumn<int>("max"); // of ball 3, whose minimum is 2
    QTest::addColumn<bool>("valid");
    QTest::newRow("empty list, a minimum above its maximum") << "" << 1 << false;
    QTest::newRow("the whole range of a ball, blanks around") << " 03  02 " << 3 << false;
    QTest::newRow("a digit takes characters, not a number") << "2 3" << 3 << true;
}

void ForecastRulesTest::filterChecksItsListBeforeTheCount()
{
    QFETCH(QString, forbidden);
    QFETCH(int, max);
    QFETCH(bool, valid);
    Draws app;
    app.context.ranges.min(3) = 2;
    app.context.ranges.max(3) = max;
    auto form = std::make_unique<ForecastFilter>(app.context, app.history);
    QCOMPARE(run(*form, forbidden, QStringLiteral("x")), QStringList());
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].text, valid ? QStringLiteral("每次预测的号码数，必须是数字！")
                                               : QStringLiteral("“红色球不允许出现的号码”设置不合理，或者1-6号球设置的范围不合理！"));
    // Both texts come back at the next opening, as they stood.
    form->reject();
    form = std::make_unique<ForecastFilter>(app.context, app.history);
    QCOMPARE(form->Text3->text() + form->Text2->text(), forbidden + "x");
}

void ForecastRulesTest::filterKeepsForbiddenRedsOutButNotBlues()
{
    // The text is searched for each red's two digits: "2" forbids nothing,
    // and any separator will do.
    Draws app;
    ForecastFilter form(app.context, app.history);
    const QStringList lines = run(form, QStringLiteral("2 08,26"), QStringLiteral("2000"), true);
    QCOMPARE(lines.size(), 2000);
    for (const QString& line : lines)
        QVERIFY2(hits(line, QStringLiteral("08 26")) == 0, qPrintable(line));
    QVERIFY(!lines.filter(QRegularExpression(QStringLiteral("^(.. )*02 "))).isEmpty());
    QVERIFY(!lines.filter(QRegularExpression(QStringLiteral("  08$"))).isEmpty());
}

void ForecastRulesTest::betRuns_data()
{
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("numbers");
    QTest::addColumn<QString>("groups");
    QTest::addColumn<QString>("rewritten");
    QTest::addColumn<QString>("outcome"); // the message, or the hits of every line, or no line at all
    const QString refused = QStringLiteral("要求出现投注号码的个数不合理，或者投注号码不规范！\r\n请重新选择和设置！");
    QTest::newRow("a bad token, too few left") << "2个" << "01 x5 03" << "9" << "01" << refused;
    QTest::newRow("a range needs its upper count") << "2-4个" << "02 08 26" << "9" << "02 08 26" << refused;
    QTest::newRow("34 stops") << "1个" << "05 34 06" << "2" << "05" << "hits 1-1";
    QTest::newRow("0 stops") << "1个" << "05 0 06" << "2" << "05" << "hits 1-1";
    QTest::newRow("exact three, two digits each") << "3个" << "1 2 3" << "50" << "01 02 03" << "hits 3-3";
    QTest::newRow("repeats count twice, decimals round") << "2个" << " 02  02 2.6 " << "20" << "02 02 03" << "hits 2-2";
    QTest::newRow("two to four, the blue no hit") << "2-4个" << "02 08 26 31" << "200" << "02 08 26 31" << "hits 2-4";
    // The group with 01 comes as the 2001st candidate, too late.
    QTest::newRow("2000 attempts, one group") << "1个" << "01" << "1" << "01" << "无法预测，设置的条件不合理，请重新设置！";
    QTest::newRow("beyond the ranges, a batch") << "1个" << "33" << "5" << "33" << "no line";
}

void ForecastRulesTest::betRuns()
{
    QFETCH(QString, count);
    QFETCH(QString, numbers);
    QFETCH(QString, groups);
    QFETCH(QString, rewritten);
    QFETCH(QString, outcome);
    Draws app;
    app.context.ranges.max(6) = 32;
    for (int attempt = 0; numbers == "01" && attempt <= 2000; ++attempt)
        forecasttest::queueGroup(app.random, {attempt < 2000 ? 3 : 1, 9, 17, 20, 27, 30}, 5);
    ForecastBet form(app.context, app.history);
    form.RichTextBox1->setText(QStringLiteral("earlier\r\n"));
    form.Combo1->setCurrentText(count);
    const QStringList lines = run(form, numbers, groups, true);
    QCOMPARE(form.Text3->text(), rewritten);
    QCOMPARE(app.random.queued.size(), size_t(numbers == "01" ? 14 : 0));
    if (!outcome.startsWith(QStringLiteral("hits "))) {
        QCOMPARE(app.messages.shown.value(0).text, outcome == "no line" ? QString() : outcome);
        QCOMPARE(lines, outcome == "no line" ? QStringList() : QStringList{"earlier"});
        return;
    }
    QVERIFY(app.messages.shown.isEmpty() && !lines.isEmpty());
    for (const QString& line : lines) {
        const int found = hits(line, rewritten);
        QVERIFY2(found >= outcome[5].digitValue() && found <= outcome[7].digitValue(), qPrintable(line));
    }
}

void ForecastRulesTest::betFillsText3FromTheLatestDrawsAndKeepsIt()
{
    // The five newest draws leave 27 numbers, 80 characters, of which Text3
    // keeps 70; the sixth draw doesn't count.
    Draws app;
    forecasttest::addRows(app.history, QStringList(6, QStringLiteral("01 02 03 04 05 06 07 00")));
    app.history.setSubItem(0, DrawHistory::GroupSubItem, QStringLiteral("08 09 10 11 12 13 14 00"));
    auto form = std::make_unique<ForecastBet>(app.context, app.history);
    form->Command6->click();
    const QString text3 = QStringLiteral("07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 3");
    QCOMPARE(form->Text3->text(), text3);
    form->Combo1->setCurrentIndex(14);
    form->reject();
    QCOMPARE(app.context.settings.read(QStringLiteral("ForecastBet"), QStringLiteral("投注个数"), {}), "14");
    form = std::make_unique<ForecastBet>(app.context, app.history);
    QCOMPARE(form->Combo1->currentText() + form->Text3->text(), "4-5个" + text3);
    // With four draws the list's own failure ends the program.
    app.history.removeAt(0);
    app.history.removeAt(0);
    form->Command6->click();
    QCOMPARE(app.process.exitCodes, QList<int>{1});
}

QTEST_MAIN(ForecastRulesTest)

#include "tst_forecastrules.moc"
