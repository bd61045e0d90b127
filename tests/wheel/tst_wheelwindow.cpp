#include "testapp.h"
#include "wheel/wheeltable.h"
#include "wheel/wheelwindow.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

// The wheel window driven through its controls.

namespace {

QString checkedToggles(const WheelWindow& window)
{
    QStringList checked;
    for (const QPushButton* toggle : window.redToggles) {
        if (toggle->isChecked())
            checked.append(toggle->text());
    }
    return checked.join(QLatin1Char(' '));
}

} // namespace

class WheelWindowTest : public QObject {
    Q_OBJECT

private slots:
    void togglesAndBoxKeepInStep();
    void badChoicesAreRefused_data();
    void badChoicesAreRefused();
    void ticketsRepeatForEachBlueAndAreCopiedAndSaved();
    void menuEntryOpensTheWindowModally();
};

void WheelWindowTest::togglesAndBoxKeepInStep()
{
    TestApp app;
    DrawHistory history;
    WheelWindow window(app.context, history);
    window.show();
    QTest::keyClicks(window.redBox, QStringLiteral("5,1 33 x 40 05"));
    QCOMPARE(checkedToggles(window), QStringLiteral("01 05 33"));
    window.redToggles[6]->click();
    QCOMPARE(window.redBox->text(), QStringLiteral("01 05 07 33"));
    window.redToggles[0]->click();
    QCOMPARE(window.redBox->text(), QStringLiteral("05 07 33"));
    QTest::keyClick(window.redBox, Qt::Key_Backspace); // "05 07 3"
    QCOMPARE(checkedToggles(window), QStringLiteral("03 05 07"));
    QTest::keyClick(window.redBox, Qt::Key_Escape); // presses 关闭
    QVERIFY(!window.isVisible());
}

void WheelWindowTest::badChoicesAreRefused_data()
{
    QTest::addColumn<QString>("reds");
    QTest::addColumn<QString>("blues");
    QTest::addColumn<QString>("message");
    QTest::newRow("six reds") << "1 2 3 4 5 6" << "" << "只选了 6 个红球：旋转矩阵至少要 7 个红球。";
    QTest::newRow("twenty-one reds") << "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21" << ""
                                     << "选了 21 个红球：旋转矩阵最多用 20 个红球。";
    QTest::newRow("blue 17") << "1 2 3 4 5 6 7" << "17" << "蓝球号码 17 超出范围：蓝球号码在 1 到 16 之间。";
}

void WheelWindowTest::badChoicesAreRefused()
{
    QFETCH(QString, reds);
    QFETCH(QString, blues);
    QFETCH(QString, message);
    TestApp app;
    DrawHistory history;
    WheelWindow window(app.context, history);
    window.show();
    window.redBox->setText(QStringLiteral("1 2 3 4 5 6 7"));
    window.makeButton->click();
    const QString before = window.tickets.text();
    QCOMPARE(before.count(QLatin1Char('\n')), 1); // 中5保4 on seven reds: one ticket
    window.redBox->setText(reds);
    window.blueBox->setText(blues);
    window.makeButton->click();
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(app.messages.shown[0].text, message);
    // Nothing that was shown is lost, and the boxes keep what was typed.
    QCOMPARE(window.tickets.text(), before);
    QCOMPARE(window.redBox->text(), reds);
}

void WheelWindowTest::ticketsRepeatForEachBlueAndAreCopiedAndSaved()
{
    TestApp app;
    DrawHistory history;
    WheelWindow window(app.context, history);
    window.show();
    window.redBox->setText(QStringLiteral("33 2 5 8 11 14 17 20 23 26 29 31"));
    window.blueBox->setText(QStringLiteral("16 6"));
    window.guaranteeList->setCurrentText(QStringLiteral("中5保5"));
    QCOMPARE(window.guaranteeNote->text(), QStringLiteral("开奖的 6 个红球中有 5 个在所选红球里时，至少有一注中其中 5 个。"));
    window.makeButton->click();
    QVERIFY(app.messages.shown.isEmpty());
    QCOMPARE(window.redBox->text(), QStringLiteral("02 05 08 11 14 17 20 23 26 29 31 33"));
    QCOMPARE(window.blueBox->text(), QStringLiteral("06 16"));
    QCOMPARE(checkedToggles(window), window.redBox->text());
    const QString text = window.tickets.text();
    QStringList lines = text.split(QStringLiteral("\r\n"));
    QCOMPARE(lines.takeLast(), QString());
    const int tickets = int(wheel::shippedDesign(12, {5, 5})->blocks.size());
    QCOMPARE(lines.size(), 2 * tickets);
    std::vector<wheel::Ticket> reds;
    for (int i = 0; i < lines.size(); i += 2) {
        QCOMPARE(lines[i].size(), 21);
        QCOMPARE(lines[i].right(4), QStringLiteral("  06"));
        QCOMPARE(lines[i + 1], lines[i].left(17) + QStringLiteral("  16"));
        wheel::Ticket ticket{};
        const QStringList numbers = lines[i].left(17).split(QLatin1Char(' '));
        for (int j = 0; j < wheel::TicketReds; ++j)
            ticket[std::size_t(j)] = numbers[j].toInt();
        reds.push_back(ticket);
    }
    QVERIFY(wheel::ticketsKeep({2, 5, 8, 11, 14, 17, 20, 23, 26, 29, 31, 33}, {5, 5}, reds));
    QCOMPARE(window.countLabel->text(), QStringLiteral("12 个红球，中5保5：%1 组红球 × 2 个蓝球，共 %2 注，金额 %3 元")
                                            .arg(tickets)
                                            .arg(2 * tickets)
                                            .arg(4 * tickets));
    QCOMPARE(window.verifiedLabel->text(), QStringLiteral("已验证：保证成立"));
    // The list shows the lines that are copied and saved, row by row.
    QCOMPARE(window.resultList->model()->rowCount(), lines.size());
    for (int row = 0; row < lines.size(); ++row)
        QCOMPARE(window.tickets.index(row).data().toString(), lines[row]);

    window.copyButton->click();
    QCOMPARE(app.clipboard.contents, text);
    app.fileDialogs.nextName.clear(); // cancelled: nothing written
    window.saveButton->click();
    app.fileDialogs.nextName = QDir(app.programFolder()).filePath(QStringLiteral("wheel.txt"));
    window.saveButton->click();
    QFile saved(app.fileDialogs.nextName);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), text.toUtf8());
    QCOMPARE(app.fileDialogs.asked, QStringList(2, QStringLiteral("*.txt|txt")));

    // Another guarantee without blues replaces the tickets.
    window.blueBox->clear();
    window.guaranteeList->setCurrentText(QStringLiteral("中6保4"));
    window.makeButton->click();
    const int fewer = int(wheel::shippedDesign(12, {6, 4})->blocks.size());
    QCOMPARE(window.tickets.rowCount(), fewer);
    QCOMPARE(window.tickets.index(0).data().toString().size(), 17);
    QVERIFY(window.countLabel->text().endsWith(QStringLiteral("共 %1 注，金额 %2 元").arg(fewer).arg(2 * fewer)));
}

void WheelWindowTest::menuEntryOpensTheWindowModally()
{
    StartedMainForm started;
    QCOMPARE(started.form.menu分析->actions().last(), started.form.menu旋转矩阵);
    QString seen;
    whenWindowShown<WheelWindow>([&](WheelWindow* window) {
        seen = window->windowTitle() + QString::number(window->isModal());
        seen += window->minimumSize() == window->maximumSize() ? QStringLiteral(" fixed") : QStringLiteral(" sizable");
        window->closeButton->click();
    });
    started.form.menu旋转矩阵->trigger();
    QCOMPARE(seen, QStringLiteral("旋转矩阵1 sizable"));
}

WINDOW_TEST_MAIN(WheelWindowTest)
#include "tst_wheelwindow.moc"
