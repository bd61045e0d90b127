#include "feedanswers.h"
#include "testapp.h"

#include <QLabel>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>

class DrawUpdateWindowTest : public QObject {
    Q_OBJECT

private slots:
    void menuUpdate_data();
    void menuUpdate();
};

void DrawUpdateWindowTest::menuUpdate_data()
{
    QTest::addColumn<int>("feedStatus"); // 0: the feed keeps silent, and the player cancels
    QTest::addColumn<int>("added");
    QTest::addColumn<QString>("message"); // "1 " for the critical icon, "4 " for information, then the text

    QTest::newRow("a few new") << 200 << 3 << "4 已更新3期开奖数据，最新一期：2016151。";
    QTest::newRow("both failing") << 500 << 0 << "1 无法获取最新开奖数据，请检查网络连接。";
    QTest::newRow("cancelled") << 0 << 0 << "";
}

void DrawUpdateWindowTest::menuUpdate()
{
    QFETCH(int, feedStatus);
    QFETCH(int, added);

    const QList<sitepages::Draw> draws = feedanswers::newest(13);
    QStringList file;
    for (const sitepages::Draw& draw : draws.mid(3))
        file << draw.issue + "*=*" + draw.balls.join(' ') + " 00*=*" + draw.balls[0];
    StartedMainForm started(file);
    MainForm& form = started.form;
    // The pages are there for the cancelled update only, which must not reach them.
    LocalHttpServer server([&, site = sitepages::site(feedStatus ? 0 : 118)](const QByteArray& target) {
        if (!feedanswers::issueCount(target) || !feedStatus)
            return feedStatus ? site(target) : HttpAnswer{.kind = HttpAnswer::Silence};
        return feedStatus == 200 ? HttpAnswer{200, feedanswers::json(draws)} : HttpAnswer::error(feedStatus);
    });
    started.app.context.addresses.feedBase = started.app.context.DrawSiteBase = server.base();
    const QList<QAction*> entries = form.menu列表->actions();
    QCOMPARE(entries.indexOf(form.menu一键更新开奖数据), entries.indexOf(form.menu在线导入最新开奖数据) + 1);

    QString shown;
    ModalWatch watch([&](QWidget* window) {
        auto* dialog = qobject_cast<QProgressDialog*>(window);
        if (feedStatus || !dialog)
            return;
        // Events run while the update waits: the request goes out and the window stays live.
        QTRY_COMPARE(server.targets.size(), 1);
        shown = dialog->windowTitle() + " " + dialog->labelText();
        dialog->findChild<QPushButton*>()->click();
    });
    form.menu一键更新开奖数据->trigger();

    QCOMPARE(shown, feedStatus ? "" : QStringLiteral("澄川号码分析台 正在连接开奖数据源…"));
    QStringList told;
    for (const ShownMessage& m : started.app.messages.shown)
        told << QString::number(int(m.icon)) + " " + m.text;
    QTEST(told.join('\n'), "message");
    QCOMPARE(form.history().count(), 10 + added);
    QCOMPARE(form.StatusBar1Panel(3)->text(), "彩票期数：" + QString::number(10 + added));
    if (added > 0) // oldest first, the number columns filled
        QCOMPARE(form.history().text(10) + form.history().subItem(12, 2) + form.history().subItem(12, 9),
                 draws[2].issue + draws[0].balls[0] + "00");
}

WINDOW_TEST_MAIN(DrawUpdateWindowTest)
#include "tst_drawupdatewindow.moc"
