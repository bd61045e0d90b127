#include "app/mainform.h"
#include "app/programstyle.h"
#include "forecast/forecastnormal.h"
#include "forecast/grouphistory.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "platform/runtimefailure.h"
#include "testapp.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace forecasttest;

namespace {

const QString lineEnd = QStringLiteral("\r\n");
const QString notNumeric = QStringLiteral("每次预测的号码数，必须是数字！");
const QString outOfRange = QStringLiteral("每次预测的号码数，必须是1-10000的数字！");

void setRanges(TestApp& app)
{
    app.context.ranges = fullRanges();
}

void typeCount(ForecastNormal& form, const QString& text)
{
    form.Text2->selectAll();
    QTest::keyClick(form.Text2, Qt::Key_Delete);
    QTest::keyClicks(form.Text2, text);
}

void click(QPushButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList resultLines(ForecastNormal& form)
{
    return form.RichTextBox1->Text().split(lineEnd, Qt::SkipEmptyParts);
}

} // namespace

class ForecastNormalTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void controlsAsDesigned_data();
    void controlsAsDesigned();
    void layoutIsFixedAndClean();
    void groupCountIsRestoredAndStoredAsItStands();
    void ticksStartEmptyAtEveryLoad();
    void invalidCountsAreRefused_data();
    void invalidCountsAreRefused();
    void countIsRoundedHalfToEven_data();
    void countIsRoundedHalfToEven();
    void countBeyond32BitsEndsTheProgram();
    void singleGroupsPileUpAndABatchReplaces();
    void runShowsItsNoticeAndBlocksItsButton();
    void ticksDecideBlueAndHistory();
    void clearCopyAndExport();
    void duplicatesOutThenASingleGroupJoinsTheLastLine();
    void menuOpensTheWindowModally();
};

void ForecastNormalTest::init()
{
    FillHistoryCollections(DrawHistory());
}

void ForecastNormalTest::controlsAsDesigned_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::newRow("Label5") << "Label5" << "一般性预测：针对设置好了取值范围的6个球，进行预测。";
    QTest::newRow("Label1") << "Label1" << "每次预测           组号码";
    QTest::newRow("Check1") << "Check1" << "预测蓝色球";
    QTest::newRow("Check2") << "Check2" << "不出现历史开过奖的号码组";
    QTest::newRow("Command1") << "Command1" << "下期预测";
    QTest::newRow("Command2") << "Command2" << "清空预测结果";
    QTest::newRow("Command3") << "Command3" << "复制全部";
    QTest::newRow("Command4") << "Command4" << "导出到WORD";
    QTest::newRow("Command5") << "Command5" << "滤掉重复";
    QTest::newRow("Label3") << "Label3" << "预测结果[请选择使用]：";
    QTest::newRow("Label4") << "Label4" << "预测中，请稍候...";
}

void ForecastNormalTest::controlsAsDesigned()
{
    QFETCH(QString, name);
    QFETCH(QString, caption);
    TestApp app;
    DrawHistory history;
    ForecastNormal form(app.context, history);
    QCOMPARE(form.windowTitle(), QStringLiteral("一般性预测"));
    QWidget* control = form.findChild<QWidget*>(name);
    QVERIFY(control);
    if (auto* label = qobject_cast<QLabel*>(control)) {
        QCOMPARE(label->text(), caption);
        QVERIFY2(label->fontMetrics().horizontalAdvance(caption) <= label->width(), "caption cut");
    } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        QCOMPARE(button->text(), caption);
        QVERIFY2(button->sizeHint().width() <= button->width(), "caption cut");
        QVERIFY(button->isEnabled());
    }
}

void ForecastNormalTest::layoutIsFixedAndClean()
{
    TestApp app;
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(form.minimumSize(), form.maximumSize());
    QCOMPARE(form.Text2->text(), QStringLiteral("1"));
    QVERIFY(form.Label4->isHidden());
    QVERIFY(form.RichTextBox1->Text().isEmpty());
    QVERIFY(!form.RichTextBox1->isReadOnly());
    QCOMPARE(form.RichTextBox1->font().families().value(0), QStringLiteral("宋体"));
    QCOMPARE(form.RichTextBox1->font().pointSizeF(), 15.75);

    // Text2 stands in the run of blanks of Label1's caption; every other
    // control has a place of its own inside the window.
    const QString caption = form.Label1->text();
    const QFontMetrics metrics(form.Label1->font());
    const int gapLeft = form.Label1->x() + metrics.horizontalAdvance(QStringLiteral("每次预测"));
    const int gapRight = form.Label1->x() + metrics.horizontalAdvance(caption.left(caption.lastIndexOf(' ') + 1));
    QVERIFY(form.Text2->x() >= gapLeft);
    QVERIFY(form.Text2->geometry().right() < gapRight);
    QVERIFY(form.Text2->width() >= form.Text2->fontMetrics().horizontalAdvance(QStringLiteral("10000")) + 8);
    form.Label4->show();
    const QList<QWidget*> controls = form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* a : controls) {
        QVERIFY2(form.rect().contains(a->geometry()), qPrintable(a->objectName()));
        for (QWidget* b : controls) {
            if (a == b || (a == form.Label1 && b == form.Text2) || (a == form.Text2 && b == form.Label1))
                continue;
            QVERIFY2(!a->geometry().intersects(b->geometry()), qPrintable(a->objectName() + " " + b->objectName()));
        }
    }
    // The notice is drawn in red.
    const QImage notice = form.Label4->grab().toImage();
    int red = 0;
    for (int y = 0; y < notice.height(); ++y)
        for (int x = 0; x < notice.width(); ++x) {
            const QColor pixel = notice.pixelColor(x, y);
            red += pixel.red() > 200 && pixel.green() < 90 && pixel.blue() < 90;
        }
    QVERIFY(red > 20);
}

void ForecastNormalTest::groupCountIsRestoredAndStoredAsItStands()
{
    TestApp app;
    DrawHistory history;
    app.context.settings.write(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QStringLiteral("3.5"));
    {
        ForecastNormal form(app.context, history);
        QCOMPARE(form.Text2->text(), QStringLiteral("3.5"));
        typeCount(form, QStringLiteral("abc"));
        form.show();
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }
    QCOMPARE(app.context.settings.read(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QString()),
             QStringLiteral("abc"));
    ForecastNormal again(app.context, history);
    QCOMPARE(again.Text2->text(), QStringLiteral("abc"));
}

void ForecastNormalTest::ticksStartEmptyAtEveryLoad()
{
    TestApp app;
    DrawHistory history;
    {
        ForecastNormal form(app.context, history);
        QVERIFY(!form.Check1->isChecked());
        QVERIFY(!form.Check2->isChecked());
        form.show();
        QTest::mouseClick(form.Check1, Qt::LeftButton, {}, QPoint(8, form.Check1->height() / 2));
        QTest::mouseClick(form.Check2, Qt::LeftButton, {}, QPoint(8, form.Check2->height() / 2));
        QVERIFY(form.Check1->isChecked() && form.Check2->isChecked());
        form.close();
    }
    ForecastNormal again(app.context, history);
    QVERIFY(!again.Check1->isChecked());
    QVERIFY(!again.Check2->isChecked());
}

void ForecastNormalTest::invalidCountsAreRefused_data()
{
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << "" << notNumeric;
    QTest::newRow("letters") << "abc" << notNumeric;
    QTest::newRow("inner blank") << "1 0" << notNumeric;
    QTest::newRow("zero") << "0" << outOfRange;
    QTest::newRow("0.4 rounds to 0") << "0.4" << outOfRange;
    QTest::newRow("negative") << "-1" << outOfRange;
    QTest::newRow("10001") << "10001" << outOfRange;
    QTest::newRow("10000.6 rounds to 10001") << "10000.6" << outOfRange;
}

void ForecastNormalTest::invalidCountsAreRefused()
{
    QFETCH(QString, count);
    QFETCH(QString, message);
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    form.RichTextBox1->setText(QStringLiteral("earlier\r\n"));
    typeCount(form, count);
    form.Command1->setFocus();
    click(form.Command1);
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(app.messages.shown[0].text, message);
    QTRY_VERIFY(form.Text2->hasFocus());
    QCOMPARE(form.RichTextBox1->Text(), QStringLiteral("earlier\r\n"));
    QVERIFY(form.Command1->isEnabled());
    QCOMPARE(app.random.randomizeCalls, 0);
}

void ForecastNormalTest::countIsRoundedHalfToEven_data()
{
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("lines");
    QTest::newRow("1.5 gives 2") << "1.5" << 2;
    QTest::newRow("2.5 gives 2") << "2.5" << 2;
    QTest::newRow("blanks around") << " 3 " << 3;
    QTest::newRow("1e3 gives 1000") << "1e3" << 1000;
    QTest::newRow("10000 runs") << "10000" << 10000;
    QTest::newRow("10000.5 gives 10000") << "10000.5" << 10000;
}

void ForecastNormalTest::countIsRoundedHalfToEven()
{
    QFETCH(QString, count);
    QFETCH(int, lines);
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    typeCount(form, count);
    click(form.Command1);
    QVERIFY(app.messages.shown.isEmpty());
    QCOMPARE(resultLines(form).size(), lines);
    QVERIFY(form.RichTextBox1->Text().endsWith(lineEnd));
}

void ForecastNormalTest::countBeyond32BitsEndsTheProgram()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    typeCount(form, QStringLiteral("99999999999"));
    click(form.Command1);
    QCOMPARE(app.process.exitCodes, QList<int>{1});
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(app.messages.shown[0].text, runtimeFailureReport(RuntimeError(RuntimeError::Overflow)));
    QVERIFY(form.RichTextBox1->Text().isEmpty());
}

void ForecastNormalTest::singleGroupsPileUpAndABatchReplaces()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    click(form.Command1);
    const QString first = form.RichTextBox1->Text();
    QCOMPARE(first.size(), 17 + 2);
    click(form.Command1);
    const QStringList two = resultLines(form);
    QCOMPARE(two.size(), 2);
    QCOMPARE(two[0] + lineEnd, first);
    QVERIFY(form.RichTextBox1->Text().endsWith(lineEnd));

    typeCount(form, QStringLiteral("2"));
    click(form.Command1);
    const QStringList batch = resultLines(form);
    QCOMPARE(batch.size(), 2);
    QVERIFY(!batch.contains(two[0]) || !batch.contains(two[1]));
    QCOMPARE(form.RichTextBox1->Text(), batch.join(lineEnd) + lineEnd);
}

void ForecastNormalTest::runShowsItsNoticeAndBlocksItsButton()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    typeCount(form, QStringLiteral("2500"));
    int looks = 0;
    bool noticeShown = true;
    bool buttonBlocked = true;
    QTimer watcher;
    watcher.setInterval(0);
    connect(&watcher, &QTimer::timeout, &form, [&] {
        ++looks;
        noticeShown = noticeShown && form.Label4->isVisible();
        buttonBlocked = buttonBlocked && !form.Command1->isEnabled();
    });
    watcher.start();
    click(form.Command1);
    watcher.stop();
    // Events ran before the first group and after groups 1000 and 2000.
    QCOMPARE(looks, 3);
    QVERIFY(noticeShown);
    QVERIFY(buttonBlocked);
    QVERIFY(form.Label4->isHidden());
    QVERIFY(form.Command1->isEnabled());
    QCOMPARE(resultLines(form).size(), 2500);
}

void ForecastNormalTest::ticksDecideBlueAndHistory()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    addRows(history, {"08 09 17 25 27 32 06 15"});
    ForecastNormal form(app.context, history);
    form.show();
    form.Check1->setChecked(true);
    form.Check2->setChecked(true);
    // The first candidate repeats the past draw, blue and all; the second is new.
    queueGroup(app.random, {8, 9, 17, 25, 27, 32}, 6);
    queueGroup(app.random, {3, 9, 17, 20, 27, 30}, 6);
    click(form.Command1);
    QCOMPARE(form.RichTextBox1->Text(), QStringLiteral("03 09 17 20 27 30  06\r\n"));

    form.Check2->setChecked(false);
    queueGroup(app.random, {8, 9, 17, 25, 27, 32}, 6);
    click(form.Command1);
    QCOMPARE(resultLines(form).value(1), QStringLiteral("08 09 17 25 27 32  06"));
}

void ForecastNormalTest::clearCopyAndExport()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    typeCount(form, QStringLiteral("3"));
    click(form.Command1);
    const QString results = form.RichTextBox1->Text();

    click(form.Command3);
    QCOMPARE(app.clipboard.contents, results);

    click(form.Command4);
    const QString document = QDir(app.programFolder()).filePath(QStringLiteral("PrintTemp.doc"));
    QCOMPARE(app.launcher.documents, QStringList{document});
    QFile file(document);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QVERIFY(content.startsWith("{\\rtf1"));
    QVERIFY(content.contains("Arial"));
    QVERIFY(content.contains(results.left(17).toLatin1() + "\\par"));

    click(form.Command2);
    QCOMPARE(form.RichTextBox1->Text(), QString());
    QVERIFY(app.messages.shown.isEmpty());
    // An empty box copies nothing: the clipboard keeps the results.
    click(form.Command3);
    QCOMPARE(app.clipboard.contents, results);
}

void ForecastNormalTest::duplicatesOutThenASingleGroupJoinsTheLastLine()
{
    TestApp app;
    setRanges(app);
    DrawHistory history;
    ForecastNormal form(app.context, history);
    form.show();
    form.RichTextBox1->setText(
        QStringLiteral("08 09 17 25 27 32\r\n01 05 09 12 20 33\r\n08 09 17 25 27 32\r\n"));
    click(form.Command5);
    QVERIFY(form.Command5->isEnabled());
    QCOMPARE(form.RichTextBox1->Text(), QStringLiteral("01 05 09 12 20 33\r\n08 09 17 25 27 32"));
    QCOMPARE(app.messages.shown.size(), 1);
    QCOMPARE(app.messages.shown[0].icon, MessageIcon::Information);
    QCOMPARE(app.messages.shown[0].text, QStringLiteral("过滤重复前：3 行记录；过滤重复后：2 行记录。"));

    queueGroup(app.random, {3, 9, 17, 20, 27, 30});
    click(form.Command1);
    QCOMPARE(form.RichTextBox1->Text(),
             QStringLiteral("01 05 09 12 20 33\r\n08 09 17 25 27 3203 09 17 20 27 30\r\n"));
    // Now the mean is neither 17 nor 21.
    click(form.Command5);
    QCOMPARE(app.messages.shown.last().text, QStringLiteral("号码格式不对！请重新预测或者修正！"));
    QCOMPARE(app.messages.shown.last().icon, MessageIcon::Critical);
}

void ForecastNormalTest::menuOpensTheWindowModally()
{
    TestApp app;
    app.writeHistory({"2007024*=*08 09 17 25 27 32 06 15*=*08", "2007025*=*10 11 12 13 14 15 16 01*=*10"});
    MainForm main(app.context);
    main.Form_Load();
    bool seen = false;
    whenModalShown([&](QWidget* modal) {
        auto* window = qobject_cast<ForecastNormal*>(modal);
        seen = window != nullptr;
        if (!window) {
            modal->close();
            return;
        }
        QVERIFY(window->isModal());
        QCOMPARE(window->windowTitle(), QStringLiteral("一般性预测"));
        QCOMPARE(forecastHistory().RedGroupHistory(),
                 (QStringList{"08 09 17 25 27 32", "10 11 12 13 14 15"}));
        QCOMPARE(forecastHistory().FullGroupHistory(),
                 (QStringList{"08 09 17 25 27 32 06", "10 11 12 13 14 15 16"}));
        typeCount(*window, QStringLiteral("7"));
        window->close();
    });
    main.menu一般性预测->trigger();
    QVERIFY(seen);
    QCOMPARE(app.context.settings.read(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QString()),
             QStringLiteral("7"));
    QVERIFY(!app.process.ended());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    ForecastNormalTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_forecastnormal.moc"
