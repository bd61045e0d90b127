#include "../forecast/forecasthelpers.h"
#include "forecast/batfilter.h"
#include "forecast/forecastbet.h"
#include "forecast/forecastfilter.h"
#include "forecast/forecastnormal.h"
#include "forecast/richtextbox.h"
#include "prize/prizecheckwindow.h"
#include "testapp.h"
#include "wheel/wheelwindow.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

QString entries(const QComboBox* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->itemText(i));
    return texts.join(QLatin1Char(','));
}

} // namespace

class PrizeWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void menuEntryChecksTypedBetsAgainstADrawOrAll();
    void emptyHistoryOnlyCountsAndLongChecksLetEventsRun();
    void resultBoxesOpenTheCheck_data();
    void resultBoxesOpenTheCheck();
};

void PrizeWindowsTest::menuEntryChecksTypedBetsAgainstADrawOrAll()
{
    StartedMainForm started({"2026064*=*01 09 15 18 29 33 15 00*=*01", "2026066*=*05 11 21 23 24 29 16 00*=*05",
                             "2026065*=*07 08 16 24 30 32 02 00*=*07", "2026067*=*05 11 21 23 24*=*05"});
    QCOMPARE(started.form.menu分析->actions().value(1), started.form.menu中奖查询);
    QStringList seen;
    whenWindowShown<PrizeCheckWindow>([&](PrizeCheckWindow* window) {
        seen << window->windowTitle() + QString::number(window->minimumSize() != window->maximumSize())
             << entries(window->drawPicker) + " " + window->drawPicker->currentText() << window->drawNumbers->text();
        for (const QLabel* label : window->findChildren<QLabel*>())
            QVERIFY2(label->wordWrap() || label->sizeHint().width() <= label->width(), qPrintable(label->text()));
        for (const QPushButton* button : window->findChildren<QPushButton*>())
            QVERIFY2(button->sizeHint().width() <= button->width(), qPrintable(button->text()));
        QTest::mouseClick(window->countButton, Qt::LeftButton); // nothing to count yet

        QTest::keyClicks(window->betsBox, QStringLiteral("05 11 21 23 24 30 16"));
        QTest::keyClick(window->betsBox, Qt::Key_Return);
        QTest::keyClicks(window->betsBox, QStringLiteral("x"));
        QTest::keyClick(window->betsBox, Qt::Key_Return);
        QTest::keyClicks(window->betsBox, QStringLiteral("05 11 21 01 02 03"));
        for (QPushButton* button : {window->checkButton, window->copyButton, window->countButton})
            QTest::mouseClick(button, Qt::LeftButton);
        seen << started.app.clipboard.contents << window->resultBox->Text();
        QTest::keyClick(window->drawPicker, Qt::Key_Up);
        QTest::mouseClick(window->checkButton, Qt::LeftButton);
        seen << window->drawNumbers->text() << window->resultBox->Text();
        QTest::keyClick(window, Qt::Key_Escape);
        seen << QString::number(window->isVisible());
    });
    started.form.menu中奖查询->trigger();
    const QString refusal = QStringLiteral("第2行：“x”不是号码，号码是一到两位数字");
    const QString thirdTier = lines({"一等奖：0注", "二等奖：0注", "三等奖：1注", "四等奖：0注", "五等奖：0注", "六等奖：0注",
                                     "固定奖金：3000元"});
    QCOMPARE(seen, (QStringList{"中奖查询1", "全部历史,2026066,2026065,2026064 2026066", "开奖号码：05 11 21 23 24 29 + 16",
                                lines({"第1行：1注，三等奖1注", refusal, "第3行：1注，未中奖（无蓝球）", "注数：2", "金额：4元"})
                                    + thirdTier,
                                lines({"第1行：1注", refusal, "第3行：1注（无蓝球）", "注数：2", "金额：4元"}), "共3期",
                                lines({"第1行：最好成绩：三等奖，中奖1期", refusal, "第3行：从未中奖（无蓝球）", "注数：6",
                                       "金额：12元"})
                                    + thirdTier,
                                "0"}));
    QCOMPARE(started.app.messages.shown.size(), 1);
    QCOMPARE(started.app.messages.shown[0].text, QStringLiteral("请先填写投注号码！"));
}

// With no draw only the count can run. While a long check lets events run,
// its buttons are off, so that a second press starts nothing; afterwards
// both are on again.
void PrizeWindowsTest::emptyHistoryOnlyCountsAndLongChecksLetEventsRun()
{
    TestApp app;
    DrawHistory history;
    PrizeCheckWindow empty(app.context, history, QStringLiteral("01 02 # 03 04 05 06 07 + 08 09"), nullptr);
    QCOMPARE(empty.drawPicker->count(), 0);
    QCOMPARE(empty.drawNumbers->text(), QStringLiteral("历史中没有开奖号码，只能计算注数"));
    empty.countButton->click();
    QCOMPARE(empty.resultBox->Text(), lines({"第1行：10注", "注数：10", "金额：20元"}));
    QVERIFY(!empty.checkButton->isEnabled() && !empty.drawPicker->isEnabled() && empty.countButton->isEnabled());

    forecasttest::addRows(history, QStringList(2500, QStringLiteral("01 02 03 04 05 06 07 00")));
    PrizeCheckWindow window(app.context, history, QStringLiteral("01 02 03 04 05 06 07\r\n").repeated(2000), nullptr);
    window.show();
    window.drawPicker->setCurrentIndex(0);
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, &window, [&] {
        if (!window.checkButton->isEnabled() && !window.countButton->isEnabled() && !window.drawPicker->isEnabled()) {
            watch.stop();
            window.resultBox->setText(QStringLiteral("during"));
        }
    });
    watch.start();
    window.checkButton->click();
    QVERIFY(!watch.isActive()); // it ran during the check
    QVERIFY(window.checkButton->isEnabled() && window.countButton->isEnabled());
    QVERIFY(window.resultBox->Text().startsWith(QStringLiteral("第1行：最好成绩：一等奖，中奖2500期\r\n")));
}

void PrizeWindowsTest::resultBoxesOpenTheCheck_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"ForecastNormal", "ForecastFilter", "ForecastBet", "BatFilter", "WheelWindow"})
        QTest::newRow(kind) << kind;
}

// The button stands clear of every other control, in the forecast windows
// below 滤掉重复; it opens the check with the result box's text (the wheel's
// tickets) as the bets, and the history to check them against.
void PrizeWindowsTest::resultBoxesOpenTheCheck()
{
    QFETCH(QString, kind);
    TestApp app;
    DrawHistory history;
    forecasttest::addRows(history, QStringList(3, QStringLiteral("01 02 03 04 05 06 07 00")));
    std::unique_ptr<QDialog> window;
    RichTextBox* results = nullptr;
    if (kind == "WheelWindow") {
        auto* wheel = new WheelWindow(app.context, history);
        window.reset(wheel);
        wheel->redBox->setText(QStringLiteral("01 02 03 04 05 06 07 08"));
        wheel->blueBox->setText(QStringLiteral("06"));
        wheel->makeButton->click();
    } else if (kind == "BatFilter") {
        window = std::make_unique<BatFilter>(app.context, history);
        results = static_cast<BatFilter*>(window.get())->RichTextBox3;
    } else {
        window.reset(kind == "ForecastNormal" ? new ForecastNormal(app.context, history)
                     : kind == "ForecastFilter" ? static_cast<QDialog*>(new ForecastFilter(app.context, history))
                                                : new ForecastBet(app.context, history));
        auto* forecast = static_cast<ForecastWindow*>(window.get());
        results = forecast->RichTextBox1;
        QCOMPARE(forecast->prizeCheckButton->x(), forecast->Command5->x());
        QVERIFY(forecast->prizeCheckButton->y() > forecast->Command5->geometry().bottom());
    }
    window->show();
    auto* button = window->findChild<QPushButton*>(QStringLiteral("prizeCheckButton"));
    QCOMPARE(button->text(), QStringLiteral("中奖查询"));
    QVERIFY(button->sizeHint().width() <= button->width() && window->rect().contains(button->geometry()));
    for (QWidget* other : window->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        QVERIFY2(other == button || !other->geometry().intersects(button->geometry()), qPrintable(other->objectName()));

    QString bets = lines({"08 09 17 25 27 32  06", "01 02 03 04 05 06"});
    if (results)
        results->setText(bets);
    else
        bets = static_cast<WheelWindow*>(window.get())->tickets.text();
    QVERIFY(bets.startsWith(QStringLiteral("0")));
    QStringList seen;
    whenWindowShown<PrizeCheckWindow>([&](PrizeCheckWindow* check) {
        seen << check->betsBox->Text() << entries(check->drawPicker);
        check->reject();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(seen, (QStringList{bets, "全部历史,2007003,2007002,2007001"}));
}

WINDOW_TEST_MAIN(PrizeWindowsTest)

#include "tst_prizewindows.moc"
