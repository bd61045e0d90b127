#include "forecast/forecastnormal.h"
#include "forecast/resultoutput.h"
#include "forecast/richtextbox.h"
#include "forecasthelpers.h"
#include "platform/runtimefailure.h"
#include "testapp.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

using namespace forecasttest;

namespace {

const QString a = QStringLiteral("03 09 17 20 27 30");
const QString b = QStringLiteral("01 05 09 12 20 33");

void typeCount(ForecastNormal& form, const QString& text)
{
    form.Text2->selectAll();
    QTest::keyClick(form.Text2, Qt::Key_Delete);
    QTest::keyClicks(form.Text2, text);
}

void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

// A shown window over full ranges and a history of these rows.
struct Fixture {
    explicit Fixture(const QStringList& rows = {})
    {
        app.context.ranges = fullRanges();
        addRows(history, rows);
        form = std::make_unique<ForecastNormal>(app.context, history);
        form->show();
    }
    // Types the count into Text2 and clicks the run button.
    void run(const QString& count)
    {
        typeCount(*form, count);
        form->Command1->setFocus();
        click(form->Command1);
    }
    QString box() const { return form->RichTextBox1->Text(); }

    TestApp app;
    DrawHistory history;
    std::unique_ptr<ForecastNormal> form;
};

} // namespace

class ForecastNormalTest : public QObject {
    Q_OBJECT

private slots:
    void invalidCountsAreRefused_data();
    void invalidCountsAreRefused();
    void countBeyond32BitsIsAnUnhandledFailure();
    void singleGroupsPileUpAtTheEndAndABatchReplaces();
    void highestCountRunsWithItsNoticeShownAndItsButtonBlocked();
    void resultButtonsWorkOnTheBox();
    void escapeKeepsABatchAndExportOpensItWhereverItCan();
    void countIsStoredAtUnloadAndTicksStartEmpty();
};

void ForecastNormalTest::invalidCountsAreRefused_data()
{
    const QString notNumeric = QStringLiteral("每次预测的号码数，必须是数字！");
    const QString outOfRange = QStringLiteral("每次预测的号码数，必须是1-10000的数字！");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << "" << notNumeric;
    QTest::newRow("0.4 rounds to 0") << "0.4" << outOfRange;
    QTest::newRow("10001") << "10001" << outOfRange;
}

void ForecastNormalTest::invalidCountsAreRefused()
{
    QFETCH(QString, count);
    QFETCH(QString, message);
    Fixture w;
    QVERIFY(QTest::qWaitForWindowActive(w.form.get()));
    w.form->RichTextBox1->setText(QStringLiteral("earlier\r\n"));
    w.run(count);
    QCOMPARE(w.app.messages.shown.size(), 1);
    QCOMPARE(w.app.messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(w.app.messages.shown[0].text, message);
    QTRY_VERIFY(w.form->Text2->hasFocus());
    QCOMPARE(w.box(), QStringLiteral("earlier\r\n"));
    QVERIFY(w.form->Command1->isEnabled());
}

void ForecastNormalTest::countBeyond32BitsIsAnUnhandledFailure()
{
    Fixture w;
    w.run(QStringLiteral("99999999999"));
    QCOMPARE(w.app.process.exitCodes, QList<int>{1});
    QCOMPARE(w.app.messages.shown.size(), 1);
    QCOMPARE(w.app.messages.shown[0].text, runtimeFailureReport(RuntimeError(RuntimeError::Overflow)));
    QCOMPARE(w.box(), QString());
}

void ForecastNormalTest::singleGroupsPileUpAtTheEndAndABatchReplaces()
{
    Fixture w({"08 09 17 25 27 32 06 15"});
    w.form->Check1->setChecked(true);
    w.form->Check2->setChecked(true);
    // The first candidate repeats the past draw, blue and all; the second is new.
    queueGroup(w.app.random, {8, 9, 17, 25, 27, 32}, 6);
    queueGroup(w.app.random, {3, 9, 17, 20, 27, 30}, 6);
    click(w.form->Command1);
    // The caret elsewhere: the next line still goes behind the last.
    w.form->RichTextBox1->setSelStart(0);
    queueGroup(w.app.random, {1, 5, 9, 12, 20, 33}, 7);
    click(w.form->Command1);
    QCOMPARE(w.box(), a + "  06\r\n" + b + "  07\r\n");

    w.form->Check1->setChecked(false);
    queueGroup(w.app.random, {1, 5, 9, 12, 20, 33});
    queueGroup(w.app.random, {3, 9, 17, 20, 27, 30});
    w.run(QStringLiteral("2"));
    QCOMPARE(w.box(), b + "\r\n" + a + "\r\n");
}

void ForecastNormalTest::highestCountRunsWithItsNoticeShownAndItsButtonBlocked()
{
    Fixture w;
    // The highest count, reached by rounding half to even.
    typeCount(*w.form, QStringLiteral("10000.5"));
    int looks = 0;
    int wrong = 0;
    QTimer watcher;
    connect(&watcher, &QTimer::timeout, [&] {
        ++looks;
        wrong += !w.form->Label4->isVisible() || w.form->Command1->isEnabled();
    });
    watcher.start(0);
    click(w.form->Command1);
    watcher.stop();
    // Events ran before the first group and after every 1000th.
    QCOMPARE(looks, 11);
    QCOMPARE(wrong, 0);
    QVERIFY(!w.form->Label4->isVisible());
    QVERIFY(w.form->Command1->isEnabled());
    QCOMPARE(w.box().count(QStringLiteral("\r\n")), 10000);
}

void ForecastNormalTest::resultButtonsWorkOnTheBox()
{
    Fixture w;
    w.form->RichTextBox1->setText(b + "\r\n" + a + "\r\n" + b + "\r\n");
    click(w.form->Command5);
    QVERIFY(w.form->Command5->isEnabled());
    QCOMPARE(w.box(), b + "\r\n" + a);
    QCOMPARE(w.app.messages.shown.size(), 1);
    // No break is left at the end, so a single group joins the last line.
    queueGroup(w.app.random, {8, 9, 17, 25, 27, 32});
    click(w.form->Command1);
    const QString joined = b + "\r\n" + a + "08 09 17 25 27 32\r\n";
    QCOMPARE(w.box(), joined);

    click(w.form->Command3);
    QCOMPARE(w.app.clipboard.contents, joined);
    click(w.form->Command4);
    const QString document = QDir(w.app.programFolder()).filePath(QStringLiteral("PrintTemp.doc"));
    QCOMPARE(w.app.launcher.documents, QStringList{document});
    QFile file(document);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), resultoutput::printDocument(joined));
    click(w.form->Command2);
    QCOMPARE(w.box(), QString());
}

void ForecastNormalTest::escapeKeepsABatchAndExportOpensItWhereverItCan()
{
    Fixture w;
    QVERIFY(QTest::qWaitForWindowActive(w.form.get()));
    w.run(QStringLiteral("3"));
    const QString results = w.box();
    QTest::keyClick(w.form->RichTextBox1, Qt::Key_Escape); // the window has no button that closes it
    QVERIFY(w.form->isVisible());
    QCOMPARE(w.box(), results);
    QCOMPARE(results.count(QStringLiteral("\r\n")), 3);

    QVERIFY(QDir(w.app.programFolder()).mkdir(QStringLiteral("PrintTemp.doc"))); // a folder in the document's way
    click(w.form->Command4);
    QCOMPARE(w.app.launcher.documents.size(), 1);
    QFile opened(w.app.launcher.documents[0]);
    QVERIFY(opened.open(QIODevice::ReadOnly));
    QCOMPARE(opened.readAll(), resultoutput::printDocument(results));
    opened.remove();
}

void ForecastNormalTest::countIsStoredAtUnloadAndTicksStartEmpty()
{
    const QString section = QStringLiteral("ForecastNormal");
    const QString key = QStringLiteral("组数");
    TestApp app;
    DrawHistory history;
    app.context.settings.write(section, key, QStringLiteral("3.5"));
    {
        ForecastNormal form(app.context, history);
        QCOMPARE(form.Text2->text(), QStringLiteral("3.5"));
        form.Check1->setChecked(true);
        form.Check2->setChecked(true);
        typeCount(form, QStringLiteral("abc"));
        form.reject();
    }
    QCOMPARE(app.context.settings.read(section, key, QString()), QStringLiteral("abc"));
    ForecastNormal again(app.context, history);
    QCOMPARE(again.Text2->text(), QStringLiteral("abc"));
    QVERIFY(!again.Check1->isChecked());
    QVERIFY(!again.Check2->isChecked());
}

QTEST_MAIN(ForecastNormalTest)

#include "tst_forecastnormal.moc"
