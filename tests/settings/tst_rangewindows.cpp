#include "app/mainform.h"
#include "settings/form6qiu.h"
#include "settings/optionform.h"
#include "statistics/formchart.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

namespace {

// Ball 1 holds 03, 05 and 07; ball 7 holds 06, 16 and 01.
const QStringList threeDraws{
    "2010001*=*03 09 17 25 27 32 06 00*=*03",
    "2010002*=*05 11 12 13 14 15 16 00*=*05",
    "2010003*=*07 08 10 20 30 33 01 00*=*07",
};

QString labelsOf(const OptionForm& window)
{
    return window.Label1->text() + "-" + window.Label4->text();
}

} // namespace

class RangeWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void form6QiuShowsTheRangesOfThisRun();
    void optionFormShowsTheChosenBall();
    void optionFormSetsARangeThroughTheChart_data();
    void optionFormSetsARangeThroughTheChart();
};

void RangeWindowsTest::form6QiuShowsTheRangesOfThisRun()
{
    StartedMainForm loaded;
    QCOMPARE(Form6Qiu(loaded.app.context).Text1->toPlainText(),
             QStringLiteral("球1取值范围:1-33\n球2取值范围:1-33\n球3取值范围:1-33\n"
                            "球4取值范围:1-33\n球5取值范围:1-33\n球6取值范围:1-33\n"));

    // Ranges set in this run show before they are stored.
    loaded.app.context.ranges.min(4) = 7;
    loaded.app.context.ranges.max(4) = 29;
    QVERIFY(Form6Qiu(loaded.app.context).Text1->toPlainText().contains(QStringLiteral("\n球4取值范围:7-29\n")));
}

void RangeWindowsTest::optionFormShowsTheChosenBall()
{
    StartedMainForm loaded(threeDraws);
    loaded.app.context.ranges.min(3) = 4;
    loaded.app.context.ranges.max(3) = 22;
    OptionForm window(loaded.app.context, loaded.form.history());
    QStringList shown{labelsOf(window)}; // ball 1 at load
    for (const int ball : {3, 7, 8}) { // balls 7 and 8 have no range: ball 3 stays shown
        window.Combo1->setCurrentIndex(ball - 1);
        shown << labelsOf(window);
    }
    QCOMPARE(shown, (QStringList{"1-33", "4-22", "4-22", "4-22"}));
}

void RangeWindowsTest::optionFormSetsARangeThroughTheChart_data()
{
    QTest::addColumn<int>("ball");
    QTest::addColumn<QString>("labelsAfter"); // what has just been set, for balls 1 to 6
    QTest::addColumn<QStringList>("issuesAfter");

    // The second and fourth entries of ball 1 (3 to 7) are 4 and 6.
    QTest::newRow("ball 1") << 1 << "4-6" << QStringList{"2010003", "2010002", "2010001"};
    QTest::newRow("ball 7 has no range: the labels keep ball 1")
        << 7 << "1-33" << QStringList{"2010002", "2010001", "2010003"};
}

void RangeWindowsTest::optionFormSetsARangeThroughTheChart()
{
    QFETCH(int, ball);
    QFETCH(QString, labelsAfter);
    QFETCH(QStringList, issuesAfter);
    StartedMainForm loaded(threeDraws);
    OptionForm window(loaded.app.context, loaded.form.history());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.Combo1->setCurrentIndex(ball - 1);

    bool enabledWhileOpen = true;
    whenWindowShown<FormChart>([&](FormChart* chart) {
        enabledWhileOpen = window.Command3->isEnabled();
        chart->Combo1->setCurrentIndex(1);
        chart->Combo2->setCurrentIndex(3);
        QTest::mouseClick(chart->Command1, Qt::LeftButton);
    });
    QTest::mouseClick(window.Command3, Qt::LeftButton);

    QVERIFY(!enabledWhileOpen);
    QVERIFY(window.Command3->isEnabled());
    QCOMPARE(labelsOf(window), labelsAfter);
    QCOMPARE(issuesOf(loaded.form.history()), issuesAfter); // sorted by that ball, descending, for good
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    RangeWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rangewindows.moc"
