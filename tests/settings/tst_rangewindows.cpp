#include "app/mainform.h"
#include "app/programstyle.h"
#include "settings/form6qiu.h"
#include "settings/optionform.h"
#include "statistics/formchart.h"
#include "testapp.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

namespace {

// Ball 1 holds 03, 05 and 01; ball 7 holds 06, 16 and 01.
const QStringList threeDraws{
    "2010001*=*03 09 17 25 27 32 06 00*=*03",
    "2010002*=*05 11 12 13 14 15 16 00*=*05",
    "2010003*=*01 07 10 20 30 33 01 00*=*01",
};

} // namespace

class RangeWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void form6QiuShowsTheRangesOfThisRun();
    void optionFormShowsTheChosenBall();
    void optionFormSetsARangeThroughTheChart_data();
    void optionFormSetsARangeThroughTheChart();
    void optionFormLayout();
};

void RangeWindowsTest::form6QiuShowsTheRangesOfThisRun()
{
    StartedMainForm loaded;
    QString firstText;
    QString caption;
    whenWindowShown<Form6Qiu>([&](Form6Qiu* window) {
        caption = window->windowTitle();
        firstText = window->Text1->toPlainText();
        QTest::mouseClick(window->Command1, Qt::LeftButton);
    });
    loaded.form.menu查看设置->trigger();
    QCOMPARE(caption, QStringLiteral("目前6个球设置的范围"));
    QCOMPARE(firstText.split(QLatin1Char('\n'), Qt::SkipEmptyParts),
             (QStringList{"球1取值范围:1-33", "球2取值范围:1-33", "球3取值范围:1-33", "球4取值范围:1-33",
                          "球5取值范围:1-33", "球6取值范围:1-33"}));

    // Ranges set in this run show before they are stored.
    loaded.app.context.ranges.min(4) = 7;
    loaded.app.context.ranges.max(4) = 29;
    QString secondText;
    whenWindowShown<Form6Qiu>([&](Form6Qiu* window) {
        secondText = window->Text1->toPlainText();
        QTest::mouseClick(window->Command1, Qt::LeftButton);
    });
    loaded.form.menu查看设置->trigger();
    QVERIFY(secondText.contains(QStringLiteral("\n球4取值范围:7-29\n")));
    QCOMPARE(loaded.app.context.settings.read("设置M", "球4取值MIN", "none"), QStringLiteral("none"));
}

void RangeWindowsTest::optionFormShowsTheChosenBall()
{
    StartedMainForm loaded(threeDraws);
    loaded.app.context.ranges.min(3) = 4;
    loaded.app.context.ranges.max(3) = 22;

    struct Shown {
        QString min;
        QString max;
    };
    QList<Shown> shown;
    QString caption;
    bool closed = false;
    whenWindowShown<OptionForm>([&](OptionForm* window) {
        caption = window->windowTitle();
        const auto labels = [&] { shown.append({window->Label1->text(), window->Label4->text()}); };
        labels(); // ball 1 at load
        window->Combo1->setCurrentIndex(2);
        labels(); // ball 3
        window->Combo1->setCurrentIndex(6);
        labels(); // ball 7 has no range: ball 3 stays shown
        QTest::mouseClick(window->Command1, Qt::LeftButton);
        closed = !window->isVisible();
    });
    loaded.form.menu设置->trigger();

    QCOMPARE(caption, QStringLiteral("设置"));
    QCOMPARE(shown.size(), 3);
    QCOMPARE(shown[0].min, QStringLiteral("1"));
    QCOMPARE(shown[0].max, QStringLiteral("33"));
    QCOMPARE(shown[1].min, QStringLiteral("4"));
    QCOMPARE(shown[1].max, QStringLiteral("22"));
    QCOMPARE(shown[2].min, QStringLiteral("4"));
    QCOMPARE(shown[2].max, QStringLiteral("22"));
    QVERIFY(closed);
    QCOMPARE(issuesOf(loaded.form.history()), (QStringList{"2010001", "2010002", "2010003"})); // only looked: nothing sorted
}

void RangeWindowsTest::optionFormSetsARangeThroughTheChart_data()
{
    QTest::addColumn<int>("ball");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("labelsAfter"); // Label1 "-" Label4 after the chart
    QTest::addColumn<QStringList>("issuesAfter");

    // Ball 1 holds 03, 05 and 01: the second and fourth entries are 2 and 4.
    QTest::newRow("ball 1 confirmed") << 1 << true << QStringList{"1", "2", "3", "4", "5"} << "2-4"
                                      << QStringList{"2010002", "2010001", "2010003"};
    QTest::newRow("ball 1 closed by the frame") << 1 << false << QStringList{"1", "2", "3", "4", "5"} << "1-33"
                                                << QStringList{"2010002", "2010001", "2010003"};
    QTest::newRow("ball 7: positions only, labels keep ball 1")
        << 7 << true
        << QStringList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}
        << "1-33" << QStringList{"2010002", "2010001", "2010003"}; // 16, 06, 01
}

void RangeWindowsTest::optionFormSetsARangeThroughTheChart()
{
    QFETCH(int, ball);
    QFETCH(bool, confirm);
    QFETCH(QStringList, values);
    QFETCH(QString, labelsAfter);
    QFETCH(QStringList, issuesAfter);
    StartedMainForm loaded(threeDraws);
    OptionForm window(loaded.app.context, loaded.form.history());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.Combo1->setCurrentIndex(ball - 1);

    QString caption;
    QString ballText;
    bool panelVisible = false;
    QStringList items;
    bool buttonEnabledWhileOpen = true;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        caption = chart->windowTitle();
        ballText = chart->Text1->text();
        panelVisible = chart->Picture1->isVisible();
        for (int i = 0; i < chart->Combo1->count(); ++i)
            items << chart->Combo1->itemText(i);
        buttonEnabledWhileOpen = window.Command3->isEnabled();
        chart->Combo1->setCurrentIndex(1);
        chart->Combo2->setCurrentIndex(3);
        if (confirm)
            QTest::mouseClick(chart->Command1, Qt::LeftButton);
        else
            chart->close();
    });
    QTest::mouseClick(window.Command3, Qt::LeftButton);

    QCOMPARE(caption, QStringLiteral("球%1的图表").arg(ball));
    QCOMPARE(ballText, QString::number(ball));
    QVERIFY(panelVisible);
    QCOMPARE(items, values);
    QVERIFY(!buttonEnabledWhileOpen);
    QVERIFY(window.Command3->isEnabled());
    QCOMPARE(window.Label1->text() + "-" + window.Label4->text(), labelsAfter);
    QCOMPARE(issuesOf(loaded.form.history()), issuesAfter); // sorted by that ball, descending, for good

    SettingsStore& settings = loaded.app.context.settings;
    const QString minKey = QStringLiteral("球%1取值MIN").arg(ball);
    QCOMPARE(settings.read("设置I", minKey, "none"), confirm ? QStringLiteral("1") : QStringLiteral("none"));
    QCOMPARE(settings.read("设置I", QStringLiteral("球%1取值MAX").arg(ball), "none"),
             confirm ? QStringLiteral("3") : QStringLiteral("none"));
    const BallRanges& ranges = loaded.app.context.ranges;
    QCOMPARE(ranges.min(1), ball == 1 && confirm ? 2 : 1);
    QCOMPARE(ranges.max(1), ball == 1 && confirm ? 4 : 33);
    for (int red = 2; red <= 6; ++red) {
        QCOMPARE(ranges.min(red), 1);
        QCOMPARE(ranges.max(red), 33);
    }
}

void RangeWindowsTest::optionFormLayout()
{
    TestApp app;
    DrawHistory history;
    OptionForm window(app.context, history);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.minimumSize(), window.maximumSize());
    QCOMPARE(window.Label2->text(), QStringLiteral("设置球：              的取值范围"));
    QCOMPARE(window.Label3->text(), QStringLiteral("---"));
    QCOMPARE(window.Command3->text(), QStringLiteral("设置"));
    QCOMPARE(window.Command1->text(), QStringLiteral("关闭"));
    QCOMPARE(window.Combo1->count(), 8);
    QCOMPARE(window.Combo1->currentText(), QStringLiteral("1"));
    QVERIFY(!window.Combo1->isEditable());

    // The list stands in the blanks of Label2's caption, covering neither
    // "设置球：" nor "的取值范围".
    const QFontMetrics metrics(window.Label2->font());
    const int captionLeft = window.Label2->geometry().left();
    const int prefixEnd = captionLeft + metrics.horizontalAdvance(QStringLiteral("设置球："));
    const int suffixStart = captionLeft + metrics.horizontalAdvance(QStringLiteral("设置球：              "));
    QVERIFY(window.Combo1->geometry().left() > prefixEnd);
    QVERIFY(window.Combo1->geometry().right() < suffixStart);
    QVERIFY(window.Combo1->width() >= 40);
    QVERIFY(metrics.horizontalAdvance(window.Label2->text()) <= window.Label2->width());
    // Rows apart, everything inside the window.
    QVERIFY(window.Label2->geometry().bottom() < window.Label1->geometry().top());
    QVERIFY(window.Label1->geometry().bottom() < window.Command3->geometry().top());
    for (QWidget* control : QList<QWidget*>{window.Label2, window.Combo1, window.Label1, window.Label3, window.Label4,
                                            window.Command3, window.Command1})
        QVERIFY(window.rect().contains(control->geometry()));

    TestApp other;
    Form6Qiu ranges(other.context);
    ranges.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ranges));
    QCOMPARE(ranges.minimumSize(), ranges.maximumSize());
    QCOMPARE(ranges.Command1->text(), QStringLiteral("确定"));
    QVERIFY(ranges.Text1->geometry().bottom() < ranges.Command1->geometry().top());
    // All six lines show without scrolling.
    const int lineHeight = ranges.Text1->fontMetrics().lineSpacing();
    QVERIFY(ranges.Text1->viewport()->height() >= 6 * lineHeight);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    RangeWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rangewindows.moc"
