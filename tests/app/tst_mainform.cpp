#include "app/logo.h"
#include "app/mainform.h"
#include "testapp.h"
#include "windowkit/desktopservices.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>
#include <QTreeView>
#include <QtTest>

namespace {

const QStringList threeDraws{
    "2007024*=*08 09 17 25 27 32 06 15*=*08",
    "2007026*=*01 02 03 04 05 06 07 00*=*01",
    "2007025*=*10 11 12 13 14 15 16 01*=*10",
};

void clickHeader(MainForm& form, int column)
{
    QHeaderView* header = form.ListView1->header();
    const QPoint centre(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, centre);
}

void selectRow(MainForm& form, int row)
{
    QTreeView* list = form.ListView1;
    const QRect cell = list->visualRect(form.history().index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
    QCOMPARE(form.selectedRow(), row);
}

} // namespace

class MainFormTest : public QObject {
    Q_OBJECT

private slots:
    void firstStartWithNothing();
    void startLoadsHistoryAndIgnoresABadRow();
    void splashWaitsForTheUpdateCheck();
    void headerClicksFlipOneDirectionAndCellsStayUnedited();
    void deleteActsOnTheSelectedRow();
    void copyPutsTheGroupOnTheClipboard();
    void clearAsksFirst();
    void windowKeepsItsDesignedLayout();
    void standardButtonsSpeakChinese();
    void menuEntries();
};

void MainFormTest::firstStartWithNothing()
{
    TestApp app;
    MainForm form(app.context);
    form.Form_Load();

    QVERIFY(!form.isVisible());
    QCOMPARE(form.windowTitle(), QStringLiteral("澄川号码分析台 V2.4-澄川软件"));
    QCOMPARE(form.history().count(), 0);
    QCOMPARE(form.StatusBar1Panel(2)->text(), QStringLiteral("列表加载完成。"));
    QCOMPARE(form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：0"));
    QCOMPARE(form.StatusBar1Panel(1)->text(), QStringLiteral("澄川软件"));
    QCOMPARE(form.StatusBar1Panel(1)->toolTip(), QStringLiteral("澄川软件"));

    QPointer<Logo> logo = form.logo();
    QVERIFY(logo && logo->isVisible());
    QCOMPARE(logo->Timer1->interval(), 6000);
    QVERIFY(logo->Timer1->isActive());
    QCOMPARE(logo->size(), logo->Image1->size());
    QCOMPARE(logo->size(), QSize(436, 408));
    QVERIFY(logo->windowFlags() & Qt::FramelessWindowHint);
    // A click on the picture shows the main window at once; the splash stays loaded.
    QTest::mouseClick(logo->Image1, Qt::LeftButton);
    QVERIFY(form.isVisible());
    QVERIFY(logo && !logo->isVisible());
    QVERIFY(logo->Timer1->isActive());
    // With no update check to wait for, the first tick unloads it.
    logo->Timer1_Timer();
    QTRY_VERIFY(logo.isNull());
    QVERIFY(form.isVisible());

    // Exit stores the ranges read at the start, the defaults here.
    form.menu退出->trigger();
    QCOMPARE(app.process.exitCodes, QList<int>{0});
    QCOMPARE(app.context.settings.read("设置M", "球6取值MAX", "none"), QStringLiteral("33"));
}

void MainFormTest::startLoadsHistoryAndIgnoresABadRow()
{
    TestApp app;
    app.writeHistory({threeDraws[0], "2007027*=*01 02 03 04 05 06 07*=*", threeDraws[1]});
    MainForm form(app.context);
    form.Form_Load();

    QCOMPARE(issuesOf(form.history()), (QStringList{"2007024", "2007027", "2007026"}));
    QCOMPARE(form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：3"));
    QCOMPARE(form.history().subItem(0, 9), QStringLiteral("15"));
    QCOMPARE(form.history().subItem(1, 8), QStringLiteral("07"));
    QCOMPARE(form.history().subItem(2, 2), QString()); // behind the bad row
    QVERIFY(!app.process.ended());
    // The list on the screen shows the rows and their number cells.
    QCOMPARE(form.ListView1->model()->rowCount(), 3);
    QCOMPARE(form.ListView1->model()->index(0, 2).data().toString(), QStringLiteral("08"));

    form.close();
    QCOMPARE(app.historyBytes(), QByteArray("2007024*=*08 09 17 25 27 32 06 15*=*08\r\n"
                                            "2007027*=*01 02 03 04 05 06 07*=*01\r\n"
                                            "2007026*=*01 02 03 04 05 06 07 00*=*\r\n"));
}

void MainFormTest::splashWaitsForTheUpdateCheck()
{
    TestApp app;
    std::function<void()> endCheck;
    QStringList calls;
    app.context.startup.getOSName = [&] { calls << "name"; return QStringLiteral("Debian 12"); };
    app.context.startup.addressWidth = [] { return QStringLiteral("64"); };
    app.context.startup.setBrowserEmulation = [&](const QString& version, bool force) {
        calls << version + (force ? "+" : "-");
    };
    const uXMLHTTP* checkedOn = nullptr;
    app.context.startup.startUpdateCheck = [&](uXMLHTTP& control, std::function<void()> ended) {
        calls << "check";
        checkedOn = &control;
        endCheck = std::move(ended);
    };
    MainForm form(app.context);
    form.Form_Load();
    QCOMPARE(calls, (QStringList{"name", "IE10+", "check"}));
    QCOMPARE(app.context.OsDescription, QStringLiteral("Debian 12[64位]"));

    QPointer<Logo> logo = form.logo();
    QCOMPARE(checkedOn, logo->uXMLHTTP2);
    logo->Timer1_Timer();
    QVERIFY(form.isVisible());
    QVERIFY(logo && !logo->isVisible());
    logo->Timer1_Timer(); // ticks go on, harmlessly
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(logo);

    endCheck();
    logo->Timer1_Timer();
    QTRY_VERIFY(logo.isNull());
}

void MainFormTest::headerClicksFlipOneDirectionAndCellsStayUnedited()
{
    StartedMainForm started(threeDraws);
    MainForm& form = started.form;
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    clickHeader(form, 0);
    QCOMPARE(issuesOf(form.history()), (QStringList{"2007026", "2007025", "2007024"}));
    clickHeader(form, 0);
    QCOMPARE(issuesOf(form.history()), (QStringList{"2007024", "2007025", "2007026"}));
    clickHeader(form, 2); // another column flips the same direction: descending by 红1
    QCOMPARE(issuesOf(form.history()), (QStringList{"2007025", "2007024", "2007026"}));
    clickHeader(form, 0);
    QCOMPARE(issuesOf(form.history()), (QStringList{"2007024", "2007025", "2007026"}));

    selectRow(form, 0);
    QTest::keyClick(form.ListView1, Qt::Key_F2);
    const QRect cell = form.ListView1->visualRect(form.history().index(0, 0));
    QTest::mouseDClick(form.ListView1->viewport(), Qt::LeftButton, {}, cell.center());
    QVERIFY(!form.ListView1->findChild<QLineEdit*>());
    QCOMPARE(form.history().text(0), QStringLiteral("2007024"));
}

void MainFormTest::deleteActsOnTheSelectedRow()
{
    StartedMainForm started(threeDraws);
    TestApp& app = started.app;
    MainForm& form = started.form;
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    form.menu删除->trigger(); // nothing selected: nothing happens
    QCOMPARE(form.history().count(), 3);
    QVERIFY(!app.process.ended());

    selectRow(form, 0); // 2007024
    clickHeader(form, 0); // sorted descending, the selection goes with its row
    QCOMPARE(form.selectedRow(), 2);
    form.menu删除->trigger();
    QCOMPARE(issuesOf(form.history()), (QStringList{"2007026", "2007025"}));
    QCOMPARE(form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：2"));

    // The file changes at exit only.
    QCOMPARE(app.historyBytes(), started.historyAtStart);
    form.close();
    QCOMPARE(app.historyBytes(), QByteArray("2007026*=*01 02 03 04 05 06 07 00*=*01\r\n"
                                            "2007025*=*10 11 12 13 14 15 16 01*=*10\r\n"));
}

void MainFormTest::copyPutsTheGroupOnTheClipboard()
{
    StartedMainForm started({threeDraws[0], "2007099*=*   *=*"});
    FakeClipboard& clipboard = started.app.clipboard;
    QVERIFY(QTest::qWaitForWindowExposed(&started.form));
    clipboard.contents = QStringLiteral("before");

    started.form.menu复制一组号码->trigger();
    selectRow(started.form, 1); // a blank group: nothing to copy
    started.form.menu复制一组号码->trigger();
    QCOMPARE(clipboard.contents, QStringLiteral("before"));
    QCOMPARE(clipboard.clears, 0);

    selectRow(started.form, 0);
    started.form.menu复制一组号码->trigger();
    QCOMPARE(clipboard.contents, QStringLiteral("08 09 17 25 27 32 06 15"));
    QCOMPARE(clipboard.clears, 1);
}

void MainFormTest::clearAsksFirst()
{
    StartedMainForm started(threeDraws);
    MainForm& form = started.form;
    started.app.messages.answers = {false, true};
    form.menu清空->trigger();
    QCOMPARE(started.app.messages.questions,
             QStringList{QStringLiteral("清空列表，将导致很多功能无法正常工作！你打算清空吗？")});
    QCOMPARE(form.history().count(), 3);

    form.menu清空->trigger();
    QCOMPARE(form.history().count(), 0);
    QCOMPARE(form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：0"));
    QCOMPARE(form.ListView1->model()->rowCount(), 0);
}

void MainFormTest::windowKeepsItsDesignedLayout()
{
    StartedMainForm started;
    MainForm& form = started.form;
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(form.frameGeometry().center(), form.screen()->availableGeometry().center());
    QVERIFY(form.StatusBar1Panel(4)->geometry().right() < form.statusBar()->width() - 1); // apart from the edge
    // Each caption shows its text whole, at least as high as its font needs, from its designed top left.
    for (QLabel* label : {form.Label1, form.Label6, form.Label4, form.Label2})
        QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width()
                     && label->sizeHint().height() <= label->height()
                     && label->visibleRegion() == QRegion(label->rect()),
                 qPrintable(label->text()));
    QCOMPARE(form.Label6->pos(), QPoint(263, 3));
    // Where it reaches over the list, a click still goes to the list.
    QVERIFY(form.ListView1->isAncestorOf(form.centralWidget()->childAt(form.Label6->geometry().bottomLeft())));
    for (QPushButton* button : {form.Command3, form.Command5, form.Command6, form.Command7, form.Command12})
        QVERIFY2(button->sizeHint().width() <= button->width() + 8, qPrintable(button->text()));

    // A right click shows the list's menu, on an empty list as well.
    QWidget* viewport = form.ListView1->viewport();
    QContextMenuEvent menuRequest(QContextMenuEvent::Mouse, QPoint(40, 40), viewport->mapToGlobal(QPoint(40, 40)));
    QApplication::sendEvent(viewport, &menuRequest);
    QTRY_VERIFY(form.menu列表->isVisible());
    form.menu列表->close();

    const QSize designed = form.size();
    QCOMPARE(designed.width(), 722);
    QCOMPARE(form.centralWidget()->height() + form.statusBar()->height(), 525);
    form.showMaximized();
    QTRY_COMPARE(form.size(), designed);
    form.showMinimized();
    form.showNormal();
    QTRY_COMPARE(form.size(), designed);
}

void MainFormTest::standardButtonsSpeakChinese()
{
    QtMessageService messages;
    QStringList captions;
    int titleRoom = 0;
    whenWindowShown<QMessageBox>([&](QMessageBox* box) {
        captions << box->button(QMessageBox::Yes)->text() << box->button(QMessageBox::No)->text();
        // Wide enough that a window frame need not cut the program's title.
        titleRoom = box->width() - QFontMetrics(box->font()).horizontalAdvance(box->windowTitle());
        box->button(QMessageBox::No)->click();
    });
    QVERIFY(!messages.askYesNo(QStringLiteral("清空列表？")));
    whenWindowShown<QMessageBox>([&](QMessageBox* box) {
        captions << box->button(QMessageBox::Ok)->text();
        box->button(QMessageBox::Ok)->click();
    });
    messages.show(MessageIcon::Critical, QStringLiteral("信息不完整。"));
    QCOMPARE(captions, (QStringList{"是(&Y)", "否(&N)", "确定"}));
    QVERIFY2(titleRoom >= 120, qPrintable(QString::number(titleRoom)));
}

void MainFormTest::menuEntries()
{
    StartedMainForm started;
    MainForm& form = started.form;
    QList<QAction*> hidden;
    for (QMenu* menu : {form.menu列表, form.menu统计, form.menu工具, form.menu预测与过滤, form.menu帮助})
        for (QAction* action : menu->actions())
            if (!action->isVisible())
                hidden << action;
    QCOMPARE(hidden, (QList<QAction*>{form.menu拆分八位数字, form.retre646, form.menu统计最近未开奖红色球球号,
                                      form.menu除3余数预测}));

    QStringList opened;
    for (QAction* entry : {form.menu设置, form.menu查看设置, form.menu一般性预测, form.menu过滤式预测, form.menu投注式预测,
                           form.menu统计最近未开奖红色球球号, form.menu关于}) {
        whenModalShown([&](QWidget* window) {
            opened << window->objectName() + (window->isModal() ? "" : " modeless");
            window->close();
        });
        entry->trigger();
    }
    QCOMPARE(opened, (QStringList{"OptionForm", "Form6Qiu", "ForecastNormal", "ForecastFilter", "ForecastBet",
                                  "qiuhaonoshow", "About"}));

    form.menu最新福彩资料->trigger();
    form.menu作者网站和其他软件->trigger();
    form.menu定制软件->trigger();
    form.menuEmail给软件作者->trigger();
    const QString date = QLocale::system().toString(started.app.clock.current.date(), QLocale::ShortFormat);
    const QString mail = QStringLiteral("mailto:maker@127.0.0.1&subject=我要对软件：澄川号码分析台 提建议&body="
                                        "软件名称：澄川号码分析台\r\n\r\n 姓名：      \r\n QQ号码：     \r\n"
                                        " Email：     \r\n 联系地址：     \r\n 邮编：      \r\n 日期：")
                         + date;
    QCOMPARE(started.app.launcher.addresses,
             (QStringList{"http://127.0.0.1:9/ssq/kaijiangshuju/", "http://127.0.0.1:9/maker/",
                          "http://127.0.0.1:9/maker/customware.htm", mail}));
}

WINDOW_TEST_MAIN(MainFormTest)

#include "tst_mainform.moc"
