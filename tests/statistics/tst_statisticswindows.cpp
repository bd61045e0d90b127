#include "app/mainform.h"
#include "statistics/formchart.h"
#include "statistics/qiuhaonoshow.h"
#include "testapp.h"

#include <QAction>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QValueAxis>
#include <QtTest>

// The statistics windows: the chart window as the main window's buttons and
// menu entries open it, and the window of the recent undrawn red balls.

namespace {

// Ball 2 holds 09, 11 and 07: the chart of ball 2 runs from 7 to 11.
const QStringList threeDraws{
    "2010001*=*03 09 17 25 27 32 06 00*=*03",
    "2010002*=*05 11 12 13 14 15 16 00*=*05",
    "2010003*=*01 07 10 20 30 33 01 00*=*01",
};

QStringList scratchColumn(MainForm& form)
{
    QStringList cells;
    for (int row = 0; row < form.history().count(); ++row)
        cells << form.history().subItem(row, DrawHistory::ScratchSubItem);
    return cells;
}

} // namespace

class StatisticsWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void frequencyPanel_data();
    void frequencyPanel();
    void derivedChart_data();
    void derivedChart();
    void drawsManyCategoriesLegibly();
    void undrawnRedsOfTheNewestDraws_data();
    void undrawnRedsOfTheNewestDraws();
};

void StatisticsWindowsTest::frequencyPanel_data()
{
    QTest::addColumn<bool>("confirmed"); // or closed by the frame, after a change either way
    QTest::addColumn<QString>("storedMin"); // "球2取值MIN" of "设置I" afterwards
    QTest::addColumn<QString>("storedMax");
    QTest::addColumn<int>("rangeMin"); // ball 2's range afterwards
    QTest::addColumn<int>("rangeMax");

    QTest::newRow("confirmed") << true << "1" << "3" << 8 << 10;
    QTest::newRow("closed by the frame") << false << "none" << "none" << 1 << 33;
}

void StatisticsWindowsTest::frequencyPanel()
{
    QFETCH(bool, confirmed);
    QFETCH(QString, storedMin);
    QFETCH(QString, storedMax);
    QFETCH(int, rangeMin);
    QFETCH(int, rangeMax);
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo1->setCurrentIndex(1); // ball 2

    bool enabledWhileOpen = true;
    QStringList categories;
    QStringList items;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        enabledWhileOpen = form.Command3->isEnabled();
        categories = chart->categoryAxis()->categories();
        for (int i = 0; i < chart->Combo1->count(); ++i)
            items << chart->Combo1->itemText(i);
        chart->Combo1->setCurrentIndex(1);
        chart->Combo2->setCurrentIndex(3);
        if (confirmed)
            QTest::mouseClick(chart->Command1, Qt::LeftButton);
        else
            chart->close();
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);

    QVERIFY(!enabledWhileOpen);
    QVERIFY(form.Command3->isEnabled());
    const QStringList values{"7", "8", "9", "10", "11"};
    QCOMPARE(categories, values);
    QCOMPARE(items, values);
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MIN", "none"), storedMin);
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MAX", "none"), storedMax);
    QCOMPARE(loaded.app.context.ranges.min(2), rangeMin);
    QCOMPARE(loaded.app.context.ranges.max(2), rangeMax);
    // Sorted by ball 2 (11, 09, 07), descending, and left so.
    QCOMPARE(issuesOf(form.history()), (QStringList{"2010002", "2010001", "2010003"}));

    // The next opening is a new window, its lists where the last confirmation left them.
    int minIndex = -2;
    int maxIndex = -2;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        minIndex = chart->Combo1->currentIndex();
        maxIndex = chart->Combo2->currentIndex();
        chart->close();
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);
    QCOMPARE(minIndex, confirmed ? 1 : 0);
    QCOMPARE(maxIndex, confirmed ? 3 : 4);
}

void StatisticsWindowsTest::derivedChart_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("fromMenu");
    QTest::addColumn<QStringList>("issues"); // sorted by the scratch column, descending

    const QStringList sevenMeans{"2010001", "2010003", "2010002"}; // 17, 15, 12
    const QStringList evens{"2010002", "2010003", "2010001"};      // 3, 3, 2
    // 球6－球5: 05, 03, 01.
    QTest::newRow("差值统计") << "Command5" << false << QStringList{"2010001", "2010003", "2010002"};
    // (球2+球1)/2: 08, 06, 04.
    QTest::newRow("平均值统计") << "Command6" << false << QStringList{"2010002", "2010001", "2010003"};
    QTest::newRow("七个球总和之平均统计, button") << "Command7" << false << sevenMeans;
    QTest::newRow("七个球总和之平均统计, menu") << "Command7" << true << sevenMeans;
    QTest::newRow("七个球偶数出现率统计, button") << "Command12" << false << evens;
    QTest::newRow("七个球偶数出现率统计, menu") << "Command12" << true << evens;
}

void StatisticsWindowsTest::derivedChart()
{
    QFETCH(QString, button);
    QFETCH(bool, fromMenu);
    QFETCH(QStringList, issues);
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo2->setCurrentIndex(4); // 球6－球5
    auto* pushButton = form.findChild<QPushButton*>(button);
    QVERIFY(pushButton);

    bool panelVisible = true;
    bool enabledWhileOpen = !fromMenu;
    QStringList scratchWhileOpen;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        panelVisible = chart->Picture1->isVisible();
        enabledWhileOpen = pushButton->isEnabled();
        scratchWhileOpen = scratchColumn(form);
        QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    if (!fromMenu)
        QTest::mouseClick(pushButton, Qt::LeftButton);
    else if (button == "Command7")
        form.menu七位总和平均统计->trigger();
    else
        form.menu七位奇偶数统计->trigger();

    QVERIFY(!panelVisible);
    QCOMPARE(enabledWhileOpen, fromMenu); // a button disables itself, a menu entry nothing
    QVERIFY(!scratchWhileOpen.contains(QString()));
    QVERIFY(pushButton->isEnabled());
    QCOMPARE(scratchColumn(form), (QStringList{"", "", ""}));
    QCOMPARE(issuesOf(form.history()), issues);
}

void StatisticsWindowsTest::drawsManyCategoriesLegibly()
{
    TestApp app;
    FormChart chart(app.context);
    // 35 categories with labels as wide as they come (a negative difference),
    // and counts of a 2,000-draw history.
    ChartTable table;
    QStringList labels;
    QList<qreal> counts;
    for (int i = 0; i < 35; ++i) {
        labels << QString::number(i - 12);
        counts << 2000 - 40 * i;
        table.rows.push_back(ChartRow{i + 1, labels.last(), QString::number(counts.last())});
    }
    chart.setChartTable(table);
    chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&chart));

    QCOMPARE(chart.categoryAxis()->categories(), labels);
    QCOMPARE(chart.chartSeries()->barSets().size(), 1);
    QList<qreal> bars;
    for (int i = 0; i < chart.chartSeries()->barSets().front()->count(); ++i)
        bars << chart.chartSeries()->barSets().front()->at(i);
    QCOMPARE(bars, counts);
    QVERIFY(chart.valueAxis()->max() >= 2000);
    // Each label fits the width of its category, level: none touches the next.
    const qreal categoryWidth = chart.MSChart1->chart()->plotArea().width() / 35;
    const QFontMetrics metrics(chart.categoryAxis()->labelsFont());
    QCOMPARE(chart.categoryAxis()->labelsAngle(), 0);
    for (const QString& label : labels)
        QVERIFY2(metrics.horizontalAdvance(label) + 2 <= categoryWidth, qPrintable(label));
    QVERIFY(metrics.height() >= 10); // and not shrunk out of sight
}

void StatisticsWindowsTest::undrawnRedsOfTheNewestDraws_data()
{
    QTest::addColumn<QStringList>("groups"); // newest first
    QTest::addColumn<QString>("draws");
    QTest::addColumn<QString>("result"); // or the message
    const QString newest = QStringLiteral("08 09 17 25 27 32 06 15");
    const QString older = QStringLiteral("10 11 12 13 14 15 16 00");
    QTest::newRow("the newest draw, its blues stay")
        << QStringList{newest, older} << "1"
        << "01 02 03 04 05 06 07 10 11 12 13 14 15 16 18 19 20 21 22 23 24 26 28 29 30 31 33";
    QTest::newRow("twenty draws to the last row")
        << QStringList(19, QStringLiteral("01 02 03 04 05 06 07 00")) + QStringList{older} << "20"
        << "07 08 09 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33";
    QTest::newRow("a short text runs into the next")
        << QStringList{"01 02 03 04 05 32", older} << "2"
        << "06 07 08 09 10 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33";
    QTest::newRow("one-digit numbers take characters, 01 stays")
        << QStringList{"8 9 17 25 27 32 06 15", older} << "1"
        << "01 02 03 04 05 07 0 0 10 11 12 13 14 15 16 1 1 20 21 22 23 24 26 2 2 30 31 33";
    QTest::newRow("too few draws") << QStringList{newest} << "5" << "历史记录中的开奖数据不足5期，无法统计！";
}

void StatisticsWindowsTest::undrawnRedsOfTheNewestDraws()
{
    QFETCH(QStringList, groups);
    QFETCH(QString, draws);
    QFETCH(QString, result);
    TestApp app;
    DrawHistory history;
    for (int i = groups.size() - 1; i >= 0; --i) {
        const QString issue = QString::number(2007100 - i);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, groups[i]);
    }
    history.setSortOrder(1); // as a descending sort by another column leaves it
    qiuhaonoshow form(app.context, history);
    QCOMPARE(form.Combo1->currentText(), QStringLiteral("5"));
    form.Combo1->setCurrentText(draws);
    form.Command1->click();
    const bool refused = !app.messages.shown.isEmpty();
    QCOMPARE(refused ? app.messages.shown[0].text : form.Text1->text(), result);
    QCOMPARE(form.Text1->text().isEmpty() && !app.process.ended(), refused);
    form.accept();
    QCOMPARE(issuesOf(history).first(), QStringLiteral("2007100"));
}

WINDOW_TEST_MAIN(StatisticsWindowsTest)

#include "tst_statisticswindows.moc"
