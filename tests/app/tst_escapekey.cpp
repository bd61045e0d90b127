#include "app/mainform.h"
#include "testapp.h"
#include "windowkit/programstyle.h"

#include <QAction>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

using Opening = std::function<void(MainForm&)>;

Opening entry(QAction* MainForm::*action)
{
    return [action](MainForm& form) { (form.*action)->trigger(); };
}

} // namespace

Q_DECLARE_METATYPE(Opening)

class EscapeKeyTest : public QObject {
    Q_OBJECT

private slots:
    void escapePressesTheCancelButtonOrNothing_data();
    void escapePressesTheCancelButtonOrNothing();
};

void EscapeKeyTest::escapePressesTheCancelButtonOrNothing_data()
{
    QTest::addColumn<Opening>("open");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("cancelButton"); // none: Escape does nothing

    QTest::newRow("添加: 取消") << entry(&MainForm::menu添加) << "FormAdd" << "Command2";
    QTest::newRow("批量导入: 取消") << entry(&MainForm::menu导入) << "FormInput" << "Command2";
    QTest::newRow("设置: 关闭") << entry(&MainForm::menu设置) << "OptionForm" << "Command1";
    QTest::newRow("查看设置: 确定 only closes") << entry(&MainForm::menu查看设置) << "Form6Qiu" << "Command1";
    QTest::newRow("一般性预测: none") << entry(&MainForm::menu一般性预测) << "ForecastNormal" << "";
    QTest::newRow("频率统计: 确定 confirms, so none")
        << Opening([](MainForm& form) { form.Command3->click(); }) << "FormChart" << "";
}

void EscapeKeyTest::escapePressesTheCancelButtonOrNothing()
{
    QFETCH(Opening, open);
    QFETCH(QString, window);
    QFETCH(QString, cancelButton);
    StartedMainForm started({"2007024*=*08 09 17 25 27 32 06 15*=*08"});
    QString shownName;
    int cancelClicks = -1;
    bool openAfterEscape = false;
    whenModalShown([&](QWidget* shown) {
        shownName = shown->objectName();
        std::unique_ptr<QSignalSpy> clicks;
        if (auto* button = shown->findChild<QPushButton*>(cancelButton); button && !cancelButton.isEmpty())
            clicks = std::make_unique<QSignalSpy>(button, &QPushButton::clicked);
        QWidget* focus = shown->focusWidget() ? shown->focusWidget() : shown;
        QTest::keyClick(focus, Qt::Key_Escape);
        cancelClicks = clicks ? int(clicks->count()) : 0;
        openAfterEscape = shown->isVisible();
        if (openAfterEscape)
            shown->close();
    });
    open(started.form);
    QCOMPARE(shownName, window);
    QCOMPARE(openAfterEscape, cancelButton.isEmpty());
    QCOMPARE(cancelClicks, cancelButton.isEmpty() ? 0 : 1);
    QVERIFY(!started.app.process.ended());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    EscapeKeyTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_escapekey.moc"
