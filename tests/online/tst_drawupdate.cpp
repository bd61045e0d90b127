#include "feedanswers.h"
#include "history/drawhistory.h"
#include "history/insertline.h"
#include "localhttpserver.h"
#include "online/drawupdate.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

namespace {

// The lines of the newest `count` draws of the site, oldest first.
QStringList newestLines(int count)
{
    QStringList lines;
    for (const sitepages::Draw& draw : feedanswers::newest(count))
        lines.prepend(draw.issue + ' ' + draw.balls.join(' '));
    return lines;
}

} // namespace

class DrawUpdateTest : public QObject {
    Q_OBJECT

private slots:
    void updates_data();
    void updates();
    void choiceFollowsThePlainRule();
};

void DrawUpdateTest::updates_data()
{
    QTest::addColumn<int>("historyFrom"); // the newest draw the history has; -1 for an empty history
    QTest::addColumn<QString>("feed");    // "good" (of 300 draws), a status, "silence", "hang-up", "body:TEXT"
    QTest::addColumn<int>("pages");       // the site's pages served
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("report"); // empty when the update fails, "-" when it is cancelled

    const QString updated = "已更新%1期开奖数据，最新一期：2016151。", backup = "（数据来自备用来源）";
    QTest::newRow("nothing new") << 0 << "good" << 0 << QStringList() << "feed100"
                                 << "开奖数据已是最新（最新一期：2016151）。";
    QTest::newRow("a few new") << 3 << "good" << 0 << newestLines(3) << "feed100" << updated.arg(3);
    QTest::newRow("empty history") << -1 << "good" << 0 << newestLines(300) << "feed100 feed5000" << updated.arg(300);
    QTest::newRow("a gap of 150") << 150 << "good" << 0 << newestLines(150) << "feed100 feed5000" << updated.arg(150);
    QList<sitepages::Draw> draws = feedanswers::newest(100);
    draws[1].balls[2] = "34";
    draws[4].balls[6] = "17"; // not new: neither taken nor counted
    QStringList twoOfThree = newestLines(3);
    twoOfThree.removeAt(1);
    QTest::newRow("a bad red") << 3 << "body:" + QString::fromUtf8(feedanswers::json(draws)) << 0 << twoOfThree
                               << "feed100" << updated.arg(2) + "\n另有1期数据不完整或有误，已跳过。";
    // Qt asks once more on a connection closed unanswered.
    for (const QString feed : {"403", "500", "body:<html>维护中</html>", "silence", "hang-up", "body:[1,2]",
                               "body:{\"result\":{}}", "body:{\"result\":[{\"code\":\"2016151\"}]}"})
        QTest::newRow(qPrintable(feed)) << 25 << feed << 118 << newestLines(25)
                                        << (feed == "hang-up" ? "feed100 feed100 page1 page2" : "feed100 page1 page2")
                                        << updated.arg(25) + backup;
    QTest::newRow("nested") << 3 << "body:" + QString(100000, '[') << 118 << newestLines(3) << "feed100 page1"
                            << updated.arg(3) + backup;
    QTest::newRow("huge") << 3 << "body:" + feedanswers::json(feedanswers::newest(100)) + QString(1 << 20, ' ') << 118
                          << newestLines(3) << "feed100 page1" << updated.arg(3) + backup;
    QString all85 = "feed100 feed5000";
    for (int page = 1; page <= 85; ++page)
        all85 += " page" + QString::number(page);
    QTest::newRow("the 5000 fail, all pages") << -1 << "good, then 500" << 118 << newestLines(1700) << all85
                                              << updated.arg(1700) + backup;
    QTest::newRow("both failing") << 3 << "500" << 0 << QStringList() << "feed100 page1" << QString();
    QTest::newRow("a page missing") << 25 << "500" << 1 << QStringList() << "feed100 page1 page2" << QString();
    QTest::newRow("cancelled on the way") << 25 << "500" << 118 << QStringList() << "feed100 page1" << "-";
}

void DrawUpdateTest::updates()
{
    QFETCH(int, historyFrom);
    QFETCH(QString, feed);
    QFETCH(int, pages);
    QFETCH(QStringList, lines);
    QFETCH(QString, report);

    QStringList asked;
    LocalHttpServer server([&, site = sitepages::site(pages)](const QByteArray& target) {
        const int count = feedanswers::issueCount(target);
        asked << (count ? "feed" + QString::number(count) : "page" + target.split('=').last());
        if (!count)
            return site(target);
        if (feed.startsWith("body:") || feed == "silence" || feed == "hang-up")
            return HttpAnswer{200, feed.mid(5).toUtf8(), feed == "silence"   ? HttpAnswer::Silence
                                                         : feed == "hang-up" ? HttpAnswer::HangUp
                                                                             : HttpAnswer::Answer};
        if (feed.toInt() || (feed.endsWith("500") && count > 100))
            return HttpAnswer::error(feed.toInt() ? feed.toInt() : 500);
        return HttpAnswer{200, feedanswers::json(feedanswers::newest(std::min(count, 300)))};
    });
    DrawHistory history;
    const QStringList old = historyFrom < 0 ? QStringList() : newestLines(historyFrom + 200).mid(0, 200);
    for (QString line : old)
        导入一行(history, line);
    DrawUpdate update(history, server.base(), server.base());
    update.requestLimitMs = 2000; // small, and still ample for a local answer
    update.answerLimitBytes = 1 << 20;
    QStringList stages;
    connect(&update, &DrawUpdate::stageChanged, this, [&](const QString& stage) { stages << stage; });
    QSignalSpy finished(&update, &DrawUpdate::finished);
    if (report == "-") // the player cancels once page 1 is read
        connect(&update, &DrawUpdate::stageChanged, &update, [&](const QString& stage) {
            if (stage == "已读取20期…")
                update.cancel();
        });
    update.start();
    QVERIFY(finished.wait(20000));

    QTEST(asked.join(' '), "asked");
    using enum DrawUpdate::Outcome;
    QCOMPARE(update.outcome(), report == "-" ? Cancelled : report.isEmpty() ? Failed : Done);
    QCOMPARE(update.choice().lines(), lines);
    QCOMPARE(update.insertInto(history), lines.size());
    QCOMPARE(history.count(), old.size() + lines.size()); // nothing at all when the update failed
    QCOMPARE(report.size() < 2 ? report : update.report(int(lines.size())), report);
    QCOMPARE(stages.first(), QStringLiteral("正在连接开奖数据源…"));
    QVERIFY(stages.contains(asked.contains("page1") ? "正在连接备用数据源…" : "已读取100期…"));
    const QString referer = "Referer: " + server.base() + "/ygkj/wqkjgg/ssq/\r";
    for (const QString& header : {QStringLiteral("Accept: application/json"), QStringLiteral("User-Agent: Mozilla/5.0 ("),
                                  QStringLiteral("X-Requested-With: XMLHttpRequest"), referer})
        QVERIFY2(server.heads.first().contains(("\r\n" + header).toUtf8()), qPrintable(header));
}

// The choice against the rule read plainly: a draw newer than the newest
// issue, whose six reds are different numbers of 1 to 33 and whose blue is
// one of 1 to 16, is taken once; another new one, or one without an issue
// number, is counted once.
void DrawUpdateTest::choiceFollowsThePlainRule()
{
    const QStringList tokens{"01", "7", "33", "34", "0", "16", "17", "x", "", " 5", "100", "-3"};
    const QStringList issues{"2026001", "2026002", "2026003", "2026004", "20260x", "", "2026001 "};
    static const QRegularExpression ball("^ *(\\d\\d?) *$"), issue("^\\d{1,9}$");
    QRandomGenerator random(2126);
    for (int round = 0; round < 3000; ++round) {
        const auto newest = round % 10 ? std::optional(2026000 + int(random.bounded(4))) : std::nullopt;
        NewDrawChoice choice(newest);
        QMap<QString, QString> taken; // the issues are of one length: ordered as numbers
        QSet<QString> seen;
        int skipped = 0;
        for (int n = int(random.bounded(1, 6)); n > 0; --n) {
            SourceDraw draw{issues[random.bounded(issues.size())], {}};
            QString line = draw.issue;
            QSet<int> reds;
            for (int i = 0, size = int(random.bounded(5, 9)); i < size; ++i) {
                draw.numbers << (random.bounded(3) ? QString::number(random.bounded(1, 35))
                                                   : tokens[random.bounded(tokens.size())]);
                const int value = ball.match(draw.numbers[i]).captured(1).toInt();
                line += value >= 1 && value <= (i < 6 ? 33 : 16) ? QString::asprintf(" %02d", value) : "?";
                if (i < 6)
                    reds += value;
            }
            choice.offer(draw);
            if (!issue.match(draw.issue).hasMatch()) {
                ++skipped;
            } else if ((!newest || draw.issue.toInt() > *newest) && !seen.contains(draw.issue)) {
                seen += draw.issue;
                if (reds.size() == 6 && draw.numbers.size() == 7 && !line.contains('?'))
                    taken[draw.issue] = line;
                else
                    ++skipped;
            }
        }
        QCOMPARE(choice.lines(), QStringList(taken.values()));
        QCOMPARE(choice.skipped(), skipped);
    }
}

QTEST_GUILESS_MAIN(DrawUpdateTest)
#include "tst_drawupdate.moc"
