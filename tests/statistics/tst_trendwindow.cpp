#include "app/mainform.h"
#include "statistics/trendchartwindow.h"
#include "statistics/trendmodel.h"
#include "testapp.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTableView>
#include <QtTest>

// The trend chart window: opened from the menu 分析, the number of draws it
// keeps, the pick row and its copy, the picture of the whole chart, and the
// histories it can't chart whole.

namespace {

// `draws` draws of issue 2020001 on, made from a fixed seed; the reds of
// each come back in issue order.
QList<QList<int>> fill(DrawHistory& history, int draws)
{
    QRandomGenerator random(18);
    QList<QList<int>> allReds;
    for (int i = 0; i < draws; ++i) {
        QList<int> reds;
        while (reds.size() < 6) {
            const int red = int(random.bounded(1, 34));
            if (!reds.contains(red))
                reds << red;
        }
        std::sort(reds.begin(), reds.end());
        QString group;
        for (int red : reds)
            group += QString::asprintf("%02d ", red);
        group += QString::asprintf("%02d 00", int(random.bounded(1, 17)));
        const QString issue = QString::number(2020001 + i);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(i, DrawHistory::GroupSubItem, group);
        allReds << reds;
    }
    return allReds;
}

// Clicks a number of the pick row, "r07" or "b12", scrolled into view.
void clickPick(TrendChartWindow& window, const QString& number)
{
    const int column = (number[0] == 'r' ? trendcolumns::firstRed : trendcolumns::firstBlue) + number.mid(1).toInt() - 1;
    const QModelIndex cell = window.footerModel()->index(TrendFooterModel::pickRow, column);
    window.footerView->scrollTo(cell);
    QTest::mouseClick(window.footerView->viewport(), Qt::LeftButton, {},
                      window.footerView->visualRect(cell).center());
}

QString footerCell(TrendChartWindow& window, int line, int column)
{
    return window.footerModel()->index(line, column).data().toString();
}

} // namespace

class TrendWindowTest : public QObject {
    Q_OBJECT

private slots:
    void opensFromTheAnalysisMenu();
    void keepsTheDrawCount_data();
    void keepsTheDrawCount();
    void pickRow_data();
    void pickRow();
    void savesTheWholeChart_data();
    void savesTheWholeChart();
    void historiesItCantChartWhole_data();
    void historiesItCantChartWhole();
    void keepsItsSize();
};

void TrendWindowTest::opensFromTheAnalysisMenu()
{
    // Out of issue order in the list, the newest in the middle.
    StartedMainForm loaded({"2020002*=*02 03 04 05 06 07 08 00*=*02", "2020003*=*03 04 05 06 07 08 09 00*=*03",
                            "2020001*=*01 02 03 04 05 06 07 00*=*01"});
    const QStringList listOrder = issuesOf(loaded.form.history());
    QAction* entry = loaded.form.menu分析->actions().value(0);
    QVERIFY(entry);
    QCOMPARE(entry->text(), QString("基本走势图"));

    QString title;
    bool modal = false;
    bool maximisable = false;
    QStringList issues;
    QString firstBall;
    whenWindowShown<TrendChartWindow>([&](TrendChartWindow* window) {
        title = window->windowTitle();
        modal = window->isModal();
        maximisable = window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint);
        for (int row = 0; row < window->chartModel()->rowCount(); ++row)
            issues << window->chartModel()->index(row, trendcolumns::issue).data().toString();
        firstBall = window->chartModel()->index(0, trendcolumns::firstRed).data().toString();
        QTest::keyClick(window, Qt::Key_Escape);
    });
    entry->trigger();

    QCOMPARE(title, QString("双色球基本走势图"));
    QVERIFY(modal);
    QVERIFY(maximisable);
    QCOMPARE(issues, (QStringList{"2020001", "2020002", "2020003"}));
    QCOMPARE(firstBall, QString("01"));
    QCOMPARE(issuesOf(loaded.form.history()), listOrder);
}

void TrendWindowTest::keepsTheDrawCount_data()
{
    QTest::addColumn<QString>("stored"); // "走势图"/"期数" before, or nothing
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("rows");

    QTest::newRow("nothing stored: 100") << QString() << "100" << 100;
    QTest::newRow("30") << "30" << "30" << 30;
    QTest::newRow("全部") << "全部" << "全部" << 120;
    QTest::newRow("500 of 120") << "500" << "500" << 120;
    QTest::newRow("not an entry: 100") << "40" << "100" << 100;
}

void TrendWindowTest::keepsTheDrawCount()
{
    QFETCH(QString, stored);
    QFETCH(QString, entry);
    QFETCH(int, rows);
    TestApp app;
    DrawHistory history;
    fill(history, 120);
    if (!stored.isNull())
        app.context.settings.write("走势图", "期数", stored);
    {
        TrendChartWindow window(app.context, history);
        window.show();
        QCOMPARE(window.drawCountList->currentText(), entry);
        QCOMPARE(window.chartModel()->rowCount(), rows);
        QCOMPARE(window.chartModel()->index(rows - 1, trendcolumns::issue).data().toString(), QString("2020120"));
        // The newest draw is in view, and a click on it marks its row.
        const QRect newest = window.chartView->visualRect(window.chartModel()->index(rows - 1, 5));
        QVERIFY(window.chartView->viewport()->rect().contains(newest));
        QTest::mouseClick(window.chartView->viewport(), Qt::LeftButton, {}, newest.center());
        QVERIFY(window.chartView->selectionModel()->isRowSelected(rows - 1, {}));

        window.drawCountList->setCurrentText("50");
        QCOMPARE(window.chartModel()->rowCount(), 50);
        QCOMPARE(window.chartModel()->index(0, trendcolumns::issue).data().toString(), QString("2020071"));
        // The footer follows: six reds in each of the 50 draws.
        int reds = 0;
        for (int column = trendcolumns::firstRed; column < trendcolumns::firstBlue; ++column)
            reds += footerCell(window, trendchart::Appearances, column).toInt();
        QCOMPARE(reds, 300);

        // The tick hides the omissions and shows them again.
        int column = trendcolumns::firstRed;
        while (window.chartModel()->index(0, column).data(trendroles::CellKind).toInt() != int(TrendCell::Omission))
            ++column;
        const QModelIndex undrawn = window.chartModel()->index(0, column);
        const QString omission = undrawn.data().toString();
        QVERIFY(omission.toInt() > 0);
        window.omissionTick->click();
        QCOMPARE(undrawn.data().toString(), QString());
        window.omissionTick->click();
        QCOMPARE(undrawn.data().toString(), omission);
        window.closeButton->click();
    }
    QCOMPARE(app.context.settings.read("走势图", "期数", "none"), QString("50"));
    TrendChartWindow again(app.context, history);
    QCOMPARE(again.drawCountList->currentText(), QString("50"));
}

void TrendWindowTest::pickRow_data()
{
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("bets");

    QTest::newRow("nothing picked: no copy") << QStringList{} << "" << "0注，0元";
    QTest::newRow("one bet") << QStringList{"r33", "r01", "r05", "r09", "r12", "r20", "b08"} << "01 05 09 12 20 33 + 08"
                             << "1注，2元";
    QTest::newRow("seven reds, two blues")
        << QStringList{"r01", "r02", "r03", "r04", "r05", "r06", "r07", "b16", "b01"} << "01 02 03 04 05 06 07 + 01 16"
        << "14注，28元";
    QTest::newRow("a second click drops") << QStringList{"r11", "r12", "r11", "b03"} << "12 + 03" << "0注，0元";
}

void TrendWindowTest::pickRow()
{
    QFETCH(QStringList, clicks);
    QFETCH(QString, text);
    QFETCH(QString, bets);
    TestApp app;
    DrawHistory history;
    fill(history, 40);
    TrendChartWindow window(app.context, history);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const QString& number : clicks)
        clickPick(window, number);

    QCOMPARE(window.betsLabel->text(), bets);
    QCOMPARE(window.copyButton->isEnabled(), !text.isEmpty());
    if (text.isEmpty())
        return;
    QCOMPARE(window.pickLabel->text(), text);
    QTest::mouseClick(window.copyButton, Qt::LeftButton);
    QCOMPARE(app.clipboard.contents, text);

    // Space on a number picks it too; 清空选号 drops everything.
    const QModelIndex blue16 = window.footerModel()->index(TrendFooterModel::pickRow, trendcolumns::firstIndicator - 1);
    window.footerView->setCurrentIndex(blue16);
    QTest::keyClick(window.footerView, Qt::Key_Space);
    QCOMPARE(blue16.data(Qt::CheckStateRole).toInt(), text.endsWith("16") ? int(Qt::Unchecked) : int(Qt::Checked));
    QTest::mouseClick(window.clearPickButton, Qt::LeftButton);
    QCOMPARE(window.footerModel()->pick().text(), QString());
    QVERIFY(!window.copyButton->isEnabled());
}

void TrendWindowTest::savesTheWholeChart_data()
{
    QTest::addColumn<QString>("name"); // in the program folder; empty for a cancelled dialog
    QTest::addColumn<bool>("written");
    QTest::addColumn<QString>("message");

    QTest::newRow("saved") << "chart.png" << true << "";
    QTest::newRow("cancelled") << "" << false << "";
    QTest::newRow("folder missing") << "missing/chart.png" << false << "无法保存图片：";
}

void TrendWindowTest::savesTheWholeChart()
{
    QFETCH(QString, name);
    QFETCH(bool, written);
    QFETCH(QString, message);
    TestApp app;
    DrawHistory history;
    const QList<QList<int>> reds = fill(history, 130);
    TrendChartWindow window(app.context, history); // the newest 100
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QString path = name.isEmpty() ? QString() : QDir(app.programFolder()).filePath(name);
    app.fileDialogs.nextName = path;
    clickPick(window, "r05");
    QTest::mouseClick(window.saveButton, Qt::LeftButton);

    QCOMPARE(app.fileDialogs.asked, QStringList{"PNG 图片 (*.png)|png"});
    QCOMPARE(app.messages.shown.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty())
        QCOMPARE(app.messages.shown[0].text, message + path);
    QCOMPARE(QFile::exists(path), written);
    if (!written)
        return;

    // Every row, scrolled into view or not, and the five rows under them.
    const QImage picture(path);
    const TrendLook& look = window.look();
    QCOMPARE(picture.width(), look.chartWidth());
    QCOMPARE(picture.height(), look.captionHeight + (100 + 1 + 5) * look.rowHeight);
    // The top row, scrolled out of the window, has its reds as red balls
    // and no ball elsewhere: a point inside the ball, above its digits.
    QVERIFY(!window.chartView->viewport()->rect().intersects(window.chartView->visualRect(window.chartModel()->index(0, 1))));
    const int y = look.captionHeight + (look.rowHeight - 1 - look.ballDiameter) / 2 + 3;
    int left = look.columnWidth(trendcolumns::issue);
    QList<int> balls;
    for (int red = 1; red <= 33; ++red) {
        const QColor colour = picture.pixelColor(left + look.columnWidth(red) / 2, y);
        if (colour.red() > 180 && colour.green() < 100)
            balls << red;
        left += look.columnWidth(red);
    }
    QCOMPARE(balls, reds[30]);
    // Under them the footer, its last row the pick with red 05 filled in.
    const int pickTop = look.captionHeight + (100 + 1 + TrendFooterModel::pickRow) * look.rowHeight;
    left = look.columnWidth(trendcolumns::issue) + 4 * look.columnWidth(1);
    const QColor picked = picture.pixelColor(left + look.columnWidth(1) / 2, pickTop + y - look.captionHeight);
    QVERIFY2(picked.red() > 180 && picked.green() < 100, qPrintable(picked.name()));
}

void TrendWindowTest::historiesItCantChartWhole_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("skipped");

    QTest::newRow("empty history") << QStringList{} << 0 << "";
    QTest::newRow("rows left out")
        << QStringList{"2020001*=*01 02 03 04 05 06 07 00*=*01", "2020002*=*01 02 03 04 05 06*=*01",
                       "2020003*=*01 02 03 04 05 40 07 00*=*01", "第四期*=*01 02 03 04 05 06 07 00*=*01"}
        << 1 << "已略过2期号码不完整的记录，已略过1期期号不是整数的记录";
}

void TrendWindowTest::historiesItCantChartWhole()
{
    QFETCH(QStringList, lines);
    QFETCH(int, rows);
    QFETCH(QString, skipped);
    StartedMainForm loaded(lines);
    int shown = -1;
    QString footer;
    QString skippedText;
    bool skippedVisible = true;
    whenWindowShown<TrendChartWindow>([&](TrendChartWindow* window) {
        shown = window->chartModel()->rowCount();
        footer = footerCell(*window, trendchart::Appearances, trendcolumns::firstRed);
        skippedText = window->skippedLabel->text();
        skippedVisible = window->skippedLabel->isVisible();
        window->close();
    });
    loaded.form.menu分析->actions().value(0)->trigger();
    QCOMPARE(shown, rows);
    QCOMPARE(footer, QString::number(rows));
    QCOMPARE(skippedText, skipped);
    QCOMPARE(skippedVisible, !skipped.isEmpty());
    QVERIFY(loaded.app.messages.shown.isEmpty());
    QVERIFY(!loaded.app.process.ended());
}

void TrendWindowTest::keepsItsSize()
{
    TestApp app;
    DrawHistory history;
    fill(history, 10);
    {
        TrendChartWindow window(app.context, history);
        window.show();
        window.resize(700, 480);
        window.closeButton->click();
    }
    QCOMPARE(app.context.settings.read("走势图", "窗口大小", ""), QString("700,480"));
    TrendChartWindow again(app.context, history);
    QCOMPARE(again.size(), QSize(700, 480));
}

WINDOW_TEST_MAIN(TrendWindowTest)
#include "tst_trendwindow.moc"
