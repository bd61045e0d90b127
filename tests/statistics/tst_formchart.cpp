#include "app/mainform.h"
#include "app/programstyle.h"
#include "statistics/formchart.h"
#include "testapp.h"

#include <QAction>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QValueAxis>
#include <QtTest>

#include <optional>

namespace {

// Ball 2 holds 09, 11 and 07: the chart of ball 2 runs from 7 to 11.
const QStringList threeDraws{
    "2010001*=*03 09 17 25 27 32 06 00*=*03",
    "2010002*=*05 11 12 13 14 15 16 00*=*05",
    "2010003*=*01 07 10 20 30 33 01 00*=*01",
};

QStringList column(MainForm& form, int subItem)
{
    QStringList cells;
    for (int row = 0; row < form.history().count(); ++row)
        cells << form.history().subItem(row, subItem);
    return cells;
}

QStringList itemsOf(QComboBox* list)
{
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->itemText(i);
    return items;
}

QStringList rowsOf(const ChartTable& table)
{
    QStringList rows;
    for (const ChartRow& row : table.rows)
        rows << row.RowLabel + QLatin1Char('=') + row.Data;
    return rows;
}

// What a statistic left in the chart window, read while it is open.
struct ChartSeen {
    QString caption;
    QString ballText;
    bool panelVisible = false;
    QStringList minItems;
    QStringList maxItems;
    int minIndex = -2;
    int maxIndex = -2;
    QStringList rows;
    QStringList categories;
    QList<qreal> values;
};

ChartSeen look(FormChart* chart)
{
    ChartSeen seen;
    seen.caption = chart->windowTitle();
    seen.ballText = chart->Text1->text();
    seen.panelVisible = chart->Picture1->isVisible();
    seen.minItems = itemsOf(chart->Combo1);
    seen.maxItems = itemsOf(chart->Combo2);
    seen.minIndex = chart->Combo1->currentIndex();
    seen.maxIndex = chart->Combo2->currentIndex();
    seen.rows = rowsOf(chart->chartTable());
    seen.categories = chart->categoryAxis()->categories();
    const QList<QBarSet*> sets = chart->chartSeries()->barSets();
    if (sets.size() == 1)
        for (int i = 0; i < sets.front()->count(); ++i)
            seen.values << sets.front()->at(i);
    return seen;
}

void pickBall(MainForm& form, int ball)
{
    form.Combo1->setCurrentIndex(ball - 1);
    QCOMPARE(form.Combo1->currentText(), QString::number(ball));
}

} // namespace

class FormChartTest : public QObject {
    Q_OBJECT

private slots:
    void frequencyChartSetsTheBallRange();
    void closingByTheFrameStoresNothing_data();
    void closingByTheFrameStoresNothing();
    void panelStartsFromTheSavedPositions_data();
    void panelStartsFromTheSavedPositions();
    void differenceChartUsesTheScratchColumn();
    void pairMeanChart();
    void sevenBallStatistics_data();
    void sevenBallStatistics();
    void chartStaysLegibleWithManyCategories();
    void layoutIsFixedAndClean();
};

void FormChartTest::frequencyChartSetsTheBallRange()
{
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    pickBall(form, 2);

    ChartSeen seen;
    bool buttonEnabledWhileOpen = true;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        buttonEnabledWhileOpen = form.Command3->isEnabled();
        chart->Combo1->setCurrentIndex(1);
        chart->Combo2->setCurrentIndex(3);
        QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);

    QCOMPARE(seen.caption, QStringLiteral("球2的图表"));
    QCOMPARE(seen.ballText, QStringLiteral("2"));
    QVERIFY(seen.panelVisible);
    QCOMPARE(seen.minItems, (QStringList{"7", "8", "9", "10", "11"}));
    QCOMPARE(seen.maxItems, seen.minItems);
    QCOMPARE(seen.minIndex, 0); // nothing saved yet: first and last
    QCOMPARE(seen.maxIndex, 4);
    QCOMPARE(seen.rows, (QStringList{"7=1", "8=0", "9=1", "10=0", "11=1"}));
    QCOMPARE(seen.categories, seen.minItems);
    QCOMPARE(seen.values, (QList<qreal>{1, 0, 1, 0, 1}));
    QVERIFY(!buttonEnabledWhileOpen);

    QVERIFY(form.Command3->isEnabled());
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MIN", "none"), QStringLiteral("1"));
    QCOMPARE(loaded.app.context.settings.read("设置I", "球2取值MAX", "none"), QStringLiteral("3"));
    QCOMPARE(loaded.app.context.ranges.min(2), 8);
    QCOMPARE(loaded.app.context.ranges.max(2), 10);
    QCOMPARE(loaded.app.context.ranges.min(1), 1); // only the ball charted
    QCOMPARE(loaded.app.context.ranges.max(3), 33);
    // The list stays sorted by ball 2, descending, on the screen too.
    QCOMPARE(issuesOf(form.history()), (QStringList{"2010002", "2010001", "2010003"}));
    QCOMPARE(form.ListView1->model()->index(0, 0).data().toString(), QStringLiteral("2010002"));
    QCOMPARE(column(form, 10), (QStringList{"", "", ""})); // the frequency needs no scratch column
    QVERIFY(loaded.app.messages.shown.isEmpty());
}

void FormChartTest::closingByTheFrameStoresNothing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("close button of the frame") << false;
    QTest::newRow("Escape key") << true;
}

void FormChartTest::closingByTheFrameStoresNothing()
{
    QFETCH(bool, escape);
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    pickBall(form, 3);
    whenWindowShown<FormChart>([&](FormChart* chart) {
        chart->Combo1->setCurrentIndex(2);
        if (escape)
            QTest::keyClick(chart, Qt::Key_Escape);
        else
            chart->close();
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);

    QCOMPARE(loaded.app.context.settings.read("设置I", "球3取值MIN", "none"), QStringLiteral("none"));
    QCOMPARE(loaded.app.context.settings.read("设置I", "球3取值MAX", "none"), QStringLiteral("none"));
    QCOMPARE(loaded.app.context.ranges.min(3), 1);
    QCOMPARE(loaded.app.context.ranges.max(3), 33);
    QVERIFY(form.Command3->isEnabled());
    QCOMPARE(issuesOf(form.history()), (QStringList{"2010001", "2010002", "2010003"})); // 17, 12, 10: sorted all the same
    QCOMPARE(form.history().SortKey(), 4);
}

void FormChartTest::panelStartsFromTheSavedPositions_data()
{
    QTest::addColumn<bool>("withDraws");
    QTest::addColumn<int>("ball");
    QTest::addColumn<std::optional<QString>>("savedMin");
    QTest::addColumn<std::optional<QString>>("savedMax");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<int>("maxIndex");
    QTest::addColumn<int>("rangeMin"); // the ball's range after "确定"; -1: no range changes
    QTest::addColumn<int>("rangeMax");

    const std::optional<QString> none;
    QTest::newRow("saved positions") << true << 2 << std::optional<QString>("2") << std::optional<QString>("3") << 2 << 3
                                     << 9 << 10;
    QTest::newRow("ball 7: positions only, no range") << true << 7 << none << none << 0 << 15 << -1 << -1;
    QTest::newRow("empty history: one entry 0, range 0 to 0") << false << 1 << none << none << 0 << 0 << 0 << 0;
}

void FormChartTest::panelStartsFromTheSavedPositions()
{
    QFETCH(bool, withDraws);
    QFETCH(int, ball);
    QFETCH(std::optional<QString>, savedMin);
    QFETCH(std::optional<QString>, savedMax);
    QFETCH(int, minIndex);
    QFETCH(int, maxIndex);
    QFETCH(int, rangeMin);
    QFETCH(int, rangeMax);
    StartedMainForm loaded(withDraws ? threeDraws : QStringList{});
    MainForm& form = loaded.form;
    SettingsStore& settings = loaded.app.context.settings;
    const QString minKey = QStringLiteral("球%1取值MIN").arg(ball);
    const QString maxKey = QStringLiteral("球%1取值MAX").arg(ball);
    if (savedMin)
        settings.write("设置I", minKey, *savedMin);
    if (savedMax)
        settings.write("设置I", maxKey, *savedMax);
    pickBall(form, ball);

    ChartSeen seen;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        QTest::mouseClick(chart->Command1, Qt::LeftButton); // confirmed as offered
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);

    QVERIFY(seen.panelVisible);
    QCOMPARE(seen.ballText, QString::number(ball));
    QCOMPARE(seen.minIndex, minIndex);
    QCOMPARE(seen.maxIndex, maxIndex);
    if (!withDraws) {
        QCOMPARE(seen.minItems, QStringList{"0"});
        QCOMPARE(seen.maxItems, QStringList{"0"});
    }
    // Confirming writes both positions, changed or not.
    QCOMPARE(settings.read("设置I", minKey, "none"), QString::number(minIndex));
    QCOMPARE(settings.read("设置I", maxKey, "none"), QString::number(maxIndex));
    const BallRanges& ranges = loaded.app.context.ranges;
    for (int red = 1; red <= 6; ++red) {
        const bool charted = red == ball && rangeMin >= 0;
        QCOMPARE(ranges.min(red), charted ? rangeMin : 1);
        QCOMPARE(ranges.max(red), charted ? rangeMax : 33);
    }

    // A second opening starts from a new window: its lists hold each value once.
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        chart->close();
    });
    QTest::mouseClick(form.Command3, Qt::LeftButton);
    QCOMPARE(seen.minIndex, minIndex);
    QCOMPARE(seen.maxItems.size(), seen.rows.size());
}

void FormChartTest::differenceChartUsesTheScratchColumn()
{
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo2->setCurrentIndex(4);

    ChartSeen seen;
    QStringList scratchWhileOpen;
    bool buttonEnabledWhileOpen = true;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        scratchWhileOpen = column(form, 10);
        buttonEnabledWhileOpen = form.Command5->isEnabled();
        QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    QTest::mouseClick(form.Command5, Qt::LeftButton);

    QCOMPARE(seen.caption, QStringLiteral("球6－球5的差值图表"));
    QCOMPARE(seen.ballText, QStringLiteral("球6－球5"));
    QVERIFY(!seen.panelVisible);
    QVERIFY(seen.minItems.isEmpty());
    // 32 - 27, 15 - 14, 33 - 30, sorted descending by that text.
    QCOMPARE(scratchWhileOpen, (QStringList{"05", "03", "01"}));
    QCOMPARE(seen.rows, (QStringList{"1=1", "2=0", "3=1", "4=0", "5=1"}));
    QVERIFY(!buttonEnabledWhileOpen);

    QVERIFY(form.Command5->isEnabled());
    QCOMPARE(column(form, 10), (QStringList{"", "", ""}));
    QCOMPARE(issuesOf(form.history()), (QStringList{"2010001", "2010003", "2010002"}));
    QCOMPARE(form.history().SortKey(), 10);
    // With the panel hidden "确定" only closes.
    QCOMPARE(loaded.app.context.settings.read("设置I", "球球6－球5取值MIN", "none"), QStringLiteral("none"));
    QCOMPARE(loaded.app.context.ranges.min(6), 1);
}

void FormChartTest::pairMeanChart()
{
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo3->setCurrentIndex(0);
    ChartSeen seen;
    QStringList scratchWhileOpen;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        scratchWhileOpen = column(form, 10);
        chart->close();
    });
    QTest::mouseClick(form.Command6, Qt::LeftButton);

    QCOMPARE(seen.caption, QStringLiteral("(球2+球1)/2的平均值图表"));
    QCOMPARE(seen.ballText, QStringLiteral("(球2+球1)/2"));
    QVERIFY(!seen.panelVisible);
    QCOMPARE(scratchWhileOpen, (QStringList{"08", "06", "04"})); // 8, 6, 4
    QCOMPARE(seen.rows, (QStringList{"4=1", "5=0", "6=1", "7=0", "8=1"}));
    QVERIFY(form.Command6->isEnabled());
    QCOMPARE(column(form, 10), (QStringList{"", "", ""}));
}

void FormChartTest::sevenBallStatistics_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("ballText");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<bool>("buttonEnabledWhileOpen");

    // Sums 119, 86, 102 over seven: 17, 12.3, 14.6. Even numbers: 2, 3, 3.
    const QStringList means{"12=1", "13=0", "14=0", "15=1", "16=0", "17=1"};
    const QStringList evens{"2=1", "3=2"};
    QTest::newRow("mean from Command7") << "Command7" << "7位数的平均值图表" << "(球4+球3)/2" << means << false;
    QTest::newRow("mean from the menu") << "menu七位总和平均统计" << "7位数的平均值图表" << "(球4+球3)/2" << means
                                        << true;
    QTest::newRow("even from Command12") << "Command12" << "7位数偶数出现的次数统计图表" << "" << evens << false;
    QTest::newRow("even from the menu") << "menu七位奇偶数统计" << "7位数偶数出现的次数统计图表" << "" << evens
                                        << true;
}

void FormChartTest::sevenBallStatistics()
{
    QFETCH(QString, command);
    QFETCH(QString, caption);
    QFETCH(QString, ballText);
    QFETCH(QStringList, rows);
    QFETCH(bool, buttonEnabledWhileOpen);
    StartedMainForm loaded(threeDraws);
    MainForm& form = loaded.form;
    form.Combo3->setCurrentIndex(2); // carried into Text1 by the mean

    QPushButton* button = caption.contains(QStringLiteral("平均")) ? form.Command7 : form.Command12;
    ChartSeen seen;
    bool enabledWhileOpen = !buttonEnabledWhileOpen;
    QStringList scratchWhileOpen;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        seen = look(chart);
        enabledWhileOpen = button->isEnabled();
        scratchWhileOpen = column(form, 10);
        QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    if (command.startsWith(QStringLiteral("Command")))
        QTest::mouseClick(button, Qt::LeftButton);
    else if (command == QStringLiteral("menu七位总和平均统计"))
        form.menu七位总和平均统计->trigger();
    else
        form.menu七位奇偶数统计->trigger();

    QCOMPARE(seen.caption, caption);
    QCOMPARE(seen.ballText, ballText);
    QVERIFY(!seen.panelVisible);
    QCOMPARE(seen.rows, rows);
    QCOMPARE(enabledWhileOpen, buttonEnabledWhileOpen);
    QVERIFY(!scratchWhileOpen.contains(QString()));
    QVERIFY(button->isEnabled());
    QCOMPARE(column(form, 10), (QStringList{"", "", ""}));
    QCOMPARE(form.history().SortKey(), 10);
    QCOMPARE(loaded.app.context.settings.read("设置I", "球(球4+球3)/2取值MIN", "none"), QStringLiteral("none"));
}

void FormChartTest::chartStaysLegibleWithManyCategories()
{
    TestApp app;
    FormChart chart(app.context);
    ChartTable table;
    // 35 categories with labels as wide as they come (a negative difference),
    // and counts of a 2,000-draw history.
    for (int i = 0; i < 35; ++i)
        table.rows.push_back(ChartRow{i + 1, QString::number(i - 12), QString::number(2000 - 40 * i)});
    chart.setChartTable(table);
    chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&chart));

    QCOMPARE(chart.chartSeries()->barSets().size(), 1);
    QCOMPARE(chart.chartSeries()->barSets().front()->count(), 35);
    QCOMPARE(chart.chartSeries()->barSets().front()->at(0), 2000.0);
    QCOMPARE(chart.categoryAxis()->categories().first(), QStringLiteral("-12"));
    QCOMPARE(chart.categoryAxis()->categories().last(), QStringLiteral("22"));
    QVERIFY(chart.chartSeries()->isLabelsVisible()); // counts on the bars
    QVERIFY(chart.valueAxis()->max() >= 2000);
    // Each label fits the width of its category, level: none touches the next.
    const qreal categoryWidth = chart.MSChart1->chart()->plotArea().width() / 35;
    const QFontMetrics metrics(chart.categoryAxis()->labelsFont());
    QCOMPARE(chart.categoryAxis()->labelsAngle(), 0);
    for (const QString& label : chart.categoryAxis()->categories())
        QVERIFY2(metrics.horizontalAdvance(label) + 2 <= categoryWidth, qPrintable(label));
    QVERIFY(metrics.height() >= 10); // and not shrunk out of sight
}

void FormChartTest::layoutIsFixedAndClean()
{
    TestApp app;
    FormChart chart(app.context);
    QCOMPARE(chart.windowTitle(), QStringLiteral("Form2"));
    chart.Picture1->setVisible(true);
    chart.show();
    QVERIFY(QTest::qWaitForWindowExposed(&chart));
    QCOMPARE(chart.minimumSize(), chart.maximumSize());
    QCOMPARE(chart.MSChart1->geometry().width(), chart.width());
    QVERIFY(chart.MSChart1->geometry().bottom() < chart.Picture1->geometry().top());
    QVERIFY(chart.Picture1->geometry().bottom() < chart.Command1->geometry().top());
    QVERIFY(chart.Command1->geometry().bottom() < chart.height());
    QCOMPARE(chart.Command1->geometry().center().x(), chart.rect().center().x());
    QCOMPARE(chart.Command1->text(), QStringLiteral("确定"));
    QVERIFY(chart.Text1->isReadOnly());
    // The panel's controls stand left to right inside it, apart, captions whole.
    const QList<QWidget*> row{chart.Label1, chart.Text1, chart.Label2, chart.Combo1,
                              chart.Label3, chart.Combo2, chart.Label4};
    const QStringList captions{"设置球：", "取最小值：", "到最大值：", "[用于预测]"};
    for (int i = 0; i < row.size(); ++i) {
        QVERIFY(chart.Picture1->rect().contains(row[i]->geometry()));
        if (i > 0)
            QVERIFY(row[i - 1]->geometry().right() < row[i]->geometry().left());
    }
    int caption = 0;
    for (QLabel* label : {chart.Label1, chart.Label2, chart.Label3, chart.Label4}) {
        QCOMPARE(label->text(), captions[caption++]);
        QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(), qPrintable(label->text()));
    }

    // Without the panel the chart takes its room.
    TestApp other;
    FormChart plain(other.context);
    plain.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plain));
    QVERIFY(!plain.Picture1->isVisible());
    QVERIFY(plain.MSChart1->height() > chart.MSChart1->height());
    QVERIFY(plain.MSChart1->geometry().bottom() < plain.Command1->geometry().top());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    FormChartTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_formchart.moc"
