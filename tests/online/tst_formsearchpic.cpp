#include "history/drawhistory.h"
#include "localhttpserver.h"
#include "online/formsearchpic.h"
#include "online/onlineimport.h"
#include "online/pagebrowser.h"
#include "sitepages.h"
#include "testapp.h"

#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>

namespace {

const QByteArray pagePath = "/zhcw/inc/ssq/ssq_wqhg.jsp?pageNum=";

bool told(const FakeMessages& m, const QString& text)
{
    return m.shown.size() == 1 && m.shown[0].icon == MessageIcon::Information && m.shown[0].text == text;
}

} // namespace

class FormSearchPicTest : public QObject {
    Q_OBJECT

private slots:
    void pagesCommandsAndLinks();
    void menuImportsEveryPageOnce_data();
    void menuImportsEveryPageOnce();
    void deepAndHeavyPagesShowANote_data();
    void deepAndHeavyPagesShowANote();
};

void FormSearchPicTest::pagesCommandsAndLinks()
{
    TestApp app;
    FormSearchPic* window = nullptr;
    QList<bool> command2Enabled; // when a page is asked for
    LocalHttpServer server([&, site = sitepages::site(100)](const QByteArray& target) {
        command2Enabled.append(window && window->Command2->isEnabled());
        return site(target);
    });
    app.context.DrawSiteBase = server.base();
    DrawHistory history;
    FormSearchPic form(app.context, history);
    window = &form;
    QCOMPARE((QStringList{form.windowTitle(), form.Command1->text(), form.Command2->text(), form.Command6->text(),
                          form.Command3->text(), form.Label1->text(), form.StatusBar1Panel1->text(),
                          form.StatusBar1Panel2->text()}),
             (QStringList{"在线导入开奖历史到主界面列表", "数据首页", "下一页", "导入当前页数据", "导入全部页数据",
                          "欢迎使用澄川软件！", "澄川软件", "目前是第1页。"}));
    const sitepages::Draw newest = sitepages::drawsOf(1)[0];
    QTRY_VERIFY(form.PageView->toPlainText().contains(newest.issue));
    form.Command6->click();
    QVERIFY(told(app.messages, "已经导入数据：20条。"));
    QCOMPARE(history.text(0) + " " + history.subItem(0, 1), newest.issue + " " + newest.balls.join(' ') + " 00");

    // Page 2 always: the site's addresses leave the page number at 1.
    form.Command2->click();
    form.Command2->click();
    QCOMPARE(form.import().PageNumber, 1);
    // Only the site's paging links lead anywhere.
    QSignalSpy completed(form.WebBrowser1, &PageBrowser::DocumentComplete);
    emit form.PageView->anchorClicked(QUrl(QStringLiteral("/zhcw/inc/ssq/other.jsp?pageNum=3")));
    QVERIFY(!completed.wait(300));
    emit form.PageView->anchorClicked(QUrl(QString::fromLatin1(pagePath + "3")));
    QVERIFY(completed.wait());
    QCOMPARE(server.targets, (QList<QByteArray>{"/zhcw/inc/ssq/ssq_wqhg.jsp", pagePath + "2", pagePath + "2",
                                                  pagePath + "3"}));
    QCOMPARE(command2Enabled, (QList<bool>{true, false, false, true}));
    QVERIFY(form.PageView->toPlainText().contains(sitepages::drawsOf(3)[0].issue));

    // Addresses in ".html" set the page number.
    for (const char* name : {"list_7.html", "List_8.html", "list.html"}) {
        form.WebBrowser1->Navigate(server.base() + "/ssq/" + name);
        QVERIFY(completed.wait());
    }
    QCOMPARE(form.import().PageNumber, 1);
    QCOMPARE(form.StatusBar1Panel2->text(), QStringLiteral("目前是第7页。"));
}

void FormSearchPicTest::menuImportsEveryPageOnce_data()
{
    QTest::addColumn<QString>("historyRow");
    QTest::addColumn<QString>("firstBall"); // of the first imported draw once the pass has run
    QTest::newRow("good rows") << "1999001*=*01 02 03 04 05 06 07 00*=*01" << sitepages::drawsOf(1)[0].balls[0];
    // A row of seven numbers stops the pass before the imported rows; nothing else follows from it.
    QTest::newRow("a row that stops the pass") << "1999001*=*01 02 03 04 05 06 07*=*01" << QString();
}

void FormSearchPicTest::menuImportsEveryPageOnce()
{
    QFETCH(QString, historyRow);
    QFETCH(QString, firstBall);

    // Page 3 never comes, and asking for it takes the clock over midnight: the wait ends at once, as a wait
    // across midnight does, and page 2, still showing, is read again.
    StartedMainForm started({historyRow});
    QDateTime& now = started.app.clock.current;
    now.setTime(QTime(23, 59, 59, 900));
    LocalHttpServer server([&, site = sitepages::site(118)](const QByteArray& target) {
        if (!target.endsWith("pageNum=3"))
            return site(target);
        now = now.addSecs(1);
        return HttpAnswer{.kind = HttpAnswer::Silence};
    });
    started.app.context.DrawSiteBase = server.base();
    bool command3Back = false;
    whenWindowShown<FormSearchPic>([&](FormSearchPic* form) {
        form->Command3->click();
        command3Back = form->Command3->isEnabled();
        form->close();
    });
    started.form.menu在线导入最新开奖数据->trigger();

    QVERIFY(told(started.app.messages, "导入完成! 已经导入数据：1700条。") && command3Back);
    const QStringList issues = issuesOf(started.form.history());
    QCOMPARE(QSet<QString>(issues.begin(), issues.end()).size(), 1 + 84 * 20); // every draw once, but page 3's
    QVERIFY(issues.contains(sitepages::drawsOf(85)[19].issue) && !issues.contains(sitepages::drawsOf(3)[0].issue));
    const QList<QByteArray> asked = server.targets.mid(server.targets.indexOf(pagePath + "1"));
    QVERIFY(asked.size() == 85 && asked.last() == pagePath + "85"); // pages 1 to 85, then no more
    QCOMPARE(started.form.StatusBar1Panel(3)->text(), QStringLiteral("彩票期数：1681"));
    QCOMPARE(started.form.history().subItem(1, 2), firstBall);
}

void FormSearchPicTest::deepAndHeavyPagesShowANote_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("imported");
    const QString refused = QStringLiteral("此页过大或嵌套过深，无法读取。");
    QTest::newRow("div nested 100,000 deep") << QByteArray("<div>").repeated(100'000) << refused
                                             << QStringLiteral("已经导入数据：0条。");
    QTest::newRow("table, row and cell nested 100,000 deep")
        << QByteArray("<table><tr><td>").repeated(100'000) << refused << QStringLiteral("已经导入数据：0条。");
    // Too much for the view to lay out in good time, but read all the same.
    QString draws = sitepages::pageHtml(1);
    const QString pager = QStringLiteral("当前第");
    draws.replace(pager, QStringLiteral("<table><tr><td>").repeated(20) + pager);
    const QString heavy = QStringLiteral("此页过大或过于复杂，不在此显示。");
    QTest::newRow("draws, with tables nested 20 deep below them")
        << sitepages::gbk(draws) << heavy << QStringLiteral("已经导入数据：20条。");
    const QString none = QStringLiteral("已经导入数据：0条。");
    QTest::newRow("1,001 pictures") << QByteArray("<img src=a.png>").repeated(1001) << heavy << none;
    QTest::newRow("1,001 list items") << "<ul>" + QByteArray("<li>x").repeated(1001) << heavy << none;
    QTest::newRow("a table 101 columns wide") << QByteArray("<table><tr><td colspan=101>x</table>") << heavy << none;
    QTest::newRow("a paragraph of 20,001 characters") << "<p>" + QByteArray(20001, 'x') << heavy << none;
    QTest::newRow("elements 101 deep") << QByteArray("<div>").repeated(99) << heavy << none;
    QTest::newRow("256 KB and more") << QByteArray("<p>x</p>").repeated(32769) << heavy << none;
}

void FormSearchPicTest::deepAndHeavyPagesShowANote()
{
    QFETCH(QByteArray, page);
    QFETCH(QString, shown);
    QFETCH(QString, imported);
    TestApp app;
    LocalHttpServer server([&](const QByteArray&) { return HttpAnswer{200, page}; });
    app.context.DrawSiteBase = server.base();
    DrawHistory history;
    FormSearchPic form(app.context, history);
    QTRY_VERIFY(form.PageView->toPlainText().contains(shown));
    form.Command6->click();
    QVERIFY(told(app.messages, imported));
}

WINDOW_TEST_MAIN(FormSearchPicTest)
#include "tst_formsearchpic.moc"
