#include "app/mainform.h"
#include "statistics/formchart.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QAction>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QFrame>
#include <QPushButton>
#include <QValueAxis>
#include <QtTest>

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

class FormChartTest : public QObject {
    Q_OBJECT

private slots:
    void frequencyPanel_data();
    void frequencyPanel();
    void derivedChart_data();
    void derivedChart();
    void drawsManyCategoriesLegibly();
};

void FormChartTest::frequencyPanel_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("storedMin"); // "球2取值MIN" of "设置I" afterwards
    QTest::addColumn<QString>("storedMax");
    QTest::addColumn<int>("rangeMin"); // ball 2's range afterwards
    QTest::addColumn<int>("rangeMax");

    QTest::newRow("confirmed after a change") << "change" << "1" << "3" << 8 << 10;
    QTest::newRow("confirmed as offered") << "confirm" << "0" << "4" << 7 << 11;
    QTest::newRow("closed by the frame after a change") << "frame" << "none" << "none" << 1 << 33;
}

void FormChartTest::frequencyPanel()
{
    QFETCH(QString, action);
    QFETCH(QString, storedMin);
    QFETCH(QString, storedMax);
    QFETCH(int, rangeMin);
    QFETCH(int, rangeMax);
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo1->setCurrentIndex(1); // ball 2
    const QStringList values{"7", "8", "9", "10", "11"};

    bool enabledWhileOpen = true;
    QStringList categories;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        enabledWhileOpen = form.Command3->isEnabled();
        categories = chart->categoryAxis()->categories();
        if (action != "confirm") {
            chart->Combo1->setCurrentIndex(1);
            chart->Combo2->setCurrentIndex(3);
        }
        if (action == "frame")
            chart->close();
        else
            QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);

    QVERIFY(!enabledWhileOpen);
    QVERIFY(form.Command3->isEnabled());
    QCOMPARE(categories, values);
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MIN", "none"), storedMin);
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MAX", "none"), storedMax);
    QCOMPARE(loaded.app.context.ranges.min(2), rangeMin);
    QCOMPARE(loaded.app.context.ranges.max(2), rangeMax);
    // Sorted by ball 2 (11, 09, 07), descending, and left so.
    QCOMPARE(issuesOf(form.history()), (QStringList{"2010002", "2010001", "2010003"}));

    // The next opening is a new window, its lists where the last confirmation left them.
    QStringList items;
    int minIndex = -2;
    int maxIndex = -2;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        for (int i = 0; i < chart->Combo1->count(); ++i)
            items << chart->Combo1->itemText(i);
        minIndex = chart->Combo1->currentIndex();
        maxIndex = chart->Combo2->currentIndex();
        chart->close();
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);
    QCOMPARE(items, values);
    QCOMPARE(minIndex, storedMin == "none" ? 0 : storedMin.toInt());
    QCOMPARE(maxIndex, storedMax == "none" ? 4 : storedMax.toInt());
}

void FormChartTest::derivedChart_data()
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

void FormChartTest::derivedChart()
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

void FormChartTest::drawsManyCategoriesLegibly()
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

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    FormChartTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_formchart.moc"
