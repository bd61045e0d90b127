#include "app/mainform.h"
#include "settings/form6qiu.h"
#include "settings/optionform.h"
#include "statistics/formchart.h"
#include "testapp.h"

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
    void optionFormShowsTheChosenBallAndSetsItThroughTheChart();
};

void RangeWindowsTest::form6QiuShowsTheRangesOfThisRun()
{
    StartedMainForm loaded;
    // Ranges set in this run show before they are stored.
    loaded.app.context.ranges.min(4) = 7;
    loaded.app.context.ranges.max(4) = 29;
    QCOMPARE(Form6Qiu(loaded.app.context).Text1->toPlainText(),
             QStringLiteral("球1取值范围:1-33\n球2取值范围:1-33\n球3取值范围:1-33\n"
                            "球4取值范围:7-29\n球5取值范围:1-33\n球6取值范围:1-33\n"));
}

void RangeWindowsTest::optionFormShowsTheChosenBallAndSetsItThroughTheChart()
{
    StartedMainForm loaded(threeDraws);
    loaded.app.context.ranges.min(3) = 4;
    loaded.app.context.ranges.max(3) = 22;
    OptionForm window(loaded.app.context, loaded.form.history());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QStringList shown{labelsOf(window)}; // ball 1 at load
    for (const int ball : {3, 7, 8}) { // balls 7 and 8 have no range: ball 3 stays shown
        window.Combo1->setCurrentIndex(ball - 1);
        shown << labelsOf(window);
    }
    QCOMPARE(shown, (QStringList{"1-33", "4-22", "4-22", "4-22"}));

    // The chart of the ball sets its range from its second and fourth entries
    // and sorts the history by that ball, descending, for good.
    QStringList labelsAfter;
    QStringList issuesAfter;
    for (const int ball : {7, 1}) {
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
        labelsAfter << labelsOf(window);
        issuesAfter << issuesOf(loaded.form.history()).join(QLatin1Char(' '));
    }
    // Ball 7 has no range: the labels keep ball 3. Ball 1 runs from 3 to 7.
    QCOMPARE(labelsAfter, (QStringList{"4-22", "4-6"}));
    QCOMPARE(issuesAfter, (QStringList{"2010002 2010001 2010003", "2010003 2010002 2010001"}));
}

WINDOW_TEST_MAIN(RangeWindowsTest)

#include "tst_rangewindows.moc"
