#include "app/about.h"
#include "app/formuseage.h"
#include "app/mainform.h"
#include "app/net35.h"
#include "app/net352.h"
#include "testapp.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

namespace {

// Every button and every one-line caption of the window shows its whole text.
void checkNothingIsCut(QWidget& window)
{
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        QVERIFY2(button->sizeHint().width() <= button->width(), qPrintable(button->text()));
    for (const QLabel* label : window.findChildren<QLabel*>())
        QVERIFY2(label->sizeHint().width() <= label->width() && label->sizeHint().height() <= label->height(),
                 qPrintable(label->objectName()));
}

} // namespace

class InfoWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void aboutShowsTheProgramAndCopiesWhatItShows();
    void systemInformation_data();
    void systemInformation();
    void useage();
    void dotNetWindows_data();
    void dotNetWindows();
    void rightsWindowNamesTheExecutable();
};

void InfoWindowsTest::aboutShowsTheProgramAndCopiesWhatItShows()
{
    TestApp app;
    app.context.OsDescription = QStringLiteral("Debian GNU/Linux 12 (bookworm)[64位]");
    About window(app.context);
    QCOMPARE(window.windowTitle(), QStringLiteral("关于『澄川号码分析台』 "));
    QCOMPARE(window.lblVersion->text(), QStringLiteral("版本 2.4.303"));

    // Before the first tick the copy takes the waiting text.
    QTest::mouseClick(window.Command1, Qt::LeftButton);
    QCOMPARE(app.clipboard.contents, QStringLiteral("正在加载信息，请稍候...\n"));
    QCOMPARE(app.clipboard.clears, 1);

    QTRY_COMPARE(window.Text1->toPlainText(), QStringLiteral("操作系统：Debian GNU/Linux 12 (bookworm)[64位]\n"));
    QVERIFY(!window.Timer1->isActive());
    // Another window shows the system as it is by then.
    app.context.OsDescription = QStringLiteral("B[32位]");
    About again(app.context);
    QTRY_COMPARE(again.Text1->toPlainText(), QStringLiteral("操作系统：B[32位]\n"));

    QTest::mouseClick(window.Label3, Qt::LeftButton);
    QTest::mouseClick(window.Label2, Qt::LeftButton);
    const SiteAddresses& sites = app.context.addresses;
    QCOMPARE(app.launcher.addresses, (QStringList{sites.makerSoftwareSite, sites.makerWebSite}));

    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    checkNothingIsCut(window);
    QSignalSpy closed(&window, &QDialog::finished);
    QTest::keyClick(&window, Qt::Key_Escape); // presses "确定"
    QCOMPARE(closed.size(), 1);
}

void InfoWindowsTest::systemInformation_data()
{
    QTest::addColumn<QStringList>("onPath");
    QTest::addColumn<bool>("starts");
    QTest::addColumn<QString>("started"); // empty: the message comes

    QTest::newRow("none on the PATH") << QStringList{} << true << "";
    QTest::newRow("the first of the list") << QStringList{"gnome-system-monitor", "kinfocenter", "hardinfo"} << true
                                           << "hardinfo";
    QTest::newRow("not started") << QStringList{"kinfocenter"} << false << "";
}

void InfoWindowsTest::systemInformation()
{
    QFETCH(QStringList, onPath);
    QFETCH(bool, starts);
    QFETCH(QString, started);
    QTemporaryDir bin;
    for (const QString& name : onPath) {
        QFile program(bin.filePath(name));
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.setPermissions(program.permissions() | QFile::ExeOwner);
    }
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(bin.path()));
    TestApp app;
    app.launcher.startSucceeds = starts;
    About window(app.context);
    QTest::mouseClick(window.Command3, Qt::LeftButton);
    qputenv("PATH", path);

    if (started.isEmpty()) {
        QCOMPARE(app.messages.shown.size(), 1);
        QCOMPARE(app.messages.shown[0].icon, MessageIcon::None);
        QCOMPARE(app.messages.shown[0].text, QStringLiteral("此时系统信息不可用"));
    } else {
        QCOMPARE(app.launcher.programs, QStringList{bin.filePath(started)});
        QVERIFY(app.messages.shown.isEmpty());
    }
}

void InfoWindowsTest::useage()
{
    StartedMainForm started;
    QStringList shown;
    whenWindowShown<FormUseage>([&](FormUseage* window) {
        shown = QStringList{window->windowTitle()} + window->Text1->toPlainText().split('\n');
        checkNothingIsCut(*window);
        QTest::keyClick(window, Qt::Key_Escape); // presses "关闭"
    });
    started.form.menu软件使用方法->trigger();
    QCOMPARE(shown, (QStringList{"软件使用方法", "本软件的使用非常简单，软件内部已经集成了大量科学的计算模式，",
                                 "不需要做繁杂的人为干预，操作步骤如下：",
                                 "1、点击设置菜单，设置1－6号球的最大取值和最小取值；",
                                 "2、点击预测菜单，点击下期预测按钮，产生一组彩票预测值，如果需要多个，就多次点击即可；",
                                 "3、经常更新、增加双色球开奖历史清单，以保证数据的全面性和预测的科学性。"}));
}

void InfoWindowsTest::dotNetWindows_data()
{
    QTest::addColumn<bool>("rights"); // the window of 软件权限设置方法, else of 微软组件安装
    QTest::addColumn<QString>("title"); // built from the program's name
    QTest::newRow("Net35") << false << "缺少微软组件-澄川号码分析台";
    QTest::newRow("Net352") << true << "软件运行权限不足，或者缺少微软组件-澄川号码分析台";
}

void InfoWindowsTest::dotNetWindows()
{
    QFETCH(bool, rights);
    QFETCH(QString, title);
    StartedMainForm started;
    started.app.context.OsDescription = QStringLiteral("Debian GNU/Linux 12 (bookworm)[64位]");
    QStringList shown;
    whenModalShown([&](QWidget* window) {
        shown << window->metaObject()->className() << window->windowTitle()
              << window->findChild<QLabel*>(QStringLiteral("Label4"))->text();
        checkNothingIsCut(*window);
        QTest::keyClick(window, Qt::Key_Escape); // nothing closes it
        QVERIFY(window->isVisible());
        QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("Command3")), Qt::LeftButton);
    });
    (rights ? started.form.menu软件权限设置方法 : started.form.menu微软组件安装)->trigger();
    QCOMPARE(shown, (QStringList{rights ? "Net352" : "Net35", title,
                                 "您的操作系统是：Debian GNU/Linux 12 (bookworm)[64位]"}));
    QCOMPARE(started.app.launcher.addresses,
             QStringList{QStringLiteral("https://www.microsoft.com/zh-CN/download/details.aspx?id=21")});
}

void InfoWindowsTest::rightsWindowNamesTheExecutable()
{
    TestApp app;
    Net352 window(app.context);
    QCOMPARE(window.Label1->text(), QStringLiteral("chengchuan"));
    QVERIFY(window.Label5->text().startsWith(QStringLiteral("请找到安装本软件的目标文件夹，选中chengchuan.exe文件，")));
    QCOMPARE(window.Picture1->pixmap().size(), QSize(377, 480));
}

WINDOW_TEST_MAIN(InfoWindowsTest)

#include "tst_infowindows.moc"
