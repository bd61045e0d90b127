#include "fakes.h"
#include "localhttpserver.h"
#include "online/updatecheck.h"
#include "online/uxmlhttp.h"

#include <QtTest>

class UXmlHttpTest : public QObject {
    Q_OBJECT

private slots:
    void endOfARequest_data();
    void endOfARequest();
    void abortWhilePollingEndsInSilence();
    void updateCheck_data();
    void updateCheck();
};

void UXmlHttpTest::endOfARequest_data()
{
    QTest::addColumn<QString>("route"); // "refused": nothing listens there
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("errors"); // the texts of OnDateErr; OnDateArrived comes on 200 alone

    const QStringList none, noText{""};
    QTest::newRow("200, empty body keeps the file") << "/empty" << 200 << none;
    QTest::newRow("200 replaces the file") << "/body" << 200 << none;
    QTest::newRow("404") << "/404" << 404 << QStringList{"没有发现文件?查询或URl"};
    QTest::newRow("418 has no text") << "/418" << 418 << noText;
    QTest::newRow("12029 ends in silence") << "/12029" << 12029 << none;
    QTest::newRow("65936 does not fit 16 bits") << "/65936" << 65936 << none;
    QTest::newRow("refused connection") << "refused" << 0 << noText;
    QTest::newRow("reset connection") << "/hangup" << 0 << noText;
}

void UXmlHttpTest::endOfARequest()
{
    QFETCH(QString, route);
    QFETCH(int, status);
    QFETCH(QStringList, errors);

    LocalHttpServer server([](const QByteArray& target) {
        if (target == "/body" || target == "/empty")
            return HttpAnswer{200, target == "/body" ? "1.2.4" : ""};
        return target == "/hangup" ? HttpAnswer{.kind = HttpAnswer::HangUp} : HttpAnswer::error(target.mid(1).toInt());
    });
    QTemporaryDir folder;
    QFile target(folder.filePath(QStringLiteral("newver.txt")));
    QVERIFY(target.open(QIODevice::WriteOnly) && target.write("old") == 3);
    target.close();

    uXMLHTTP control;
    QSignalSpy arrivals(&control, &uXMLHTTP::OnDateArrived);
    QSignalSpy failures(&control, &uXMLHTTP::OnDateErr);
    control.Open_(QStringLiteral("get"), route == "refused" ? LocalHttpServer::refusedBase() : server.base() + route,
                  target.fileName());
    control.SetRequestHeader(QStringLiteral("X-Probe"), QStringLiteral("1"));
    control.Send_();
    QTRY_VERIFY(control.DownOK());

    QCOMPARE(control.Status(), status);
    QCOMPARE(arrivals.count(), status == 200 ? 1 : 0);
    QStringList texts;
    for (const QList<QVariant>& failure : failures)
        texts.append(failure.at(0).toString());
    QCOMPARE(texts, errors);
    QVERIFY(target.open(QIODevice::ReadOnly));
    QCOMPARE(target.readAll(), route == "/body" ? "1.2.4" : "old"); // it held "old"; an empty body keeps it
    for (const QByteArray& head : server.heads)
        QVERIFY(head.startsWith("GET ") && head.contains("\r\nX-Probe: 1\r\n"));
}

void UXmlHttpTest::abortWhilePollingEndsInSilence()
{
    LocalHttpServer server([](const QByteArray&) { return HttpAnswer{.kind = HttpAnswer::Silence}; });
    uXMLHTTP control;
    QSignalSpy ticks(&control, &uXMLHTTP::OnReadyStateChange);
    QSignalSpy failures(&control, &uXMLHTTP::OnDateErr);
    control.Send_(); // without Open_ nothing polls
    QVERIFY(!control.tmrReader->isActive());
    control.Open_(QStringLiteral("GET"), server.base());
    control.Send_();
    QVERIFY(ticks.wait());

    control.Abort_();
    QVERIFY(!control.tmrReader->isActive());
    QVERIFY(!failures.wait(200));
    QVERIFY(!control.DownOK());
}

void UXmlHttpTest::updateCheck_data()
{
    QTest::addColumn<QString>("running");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("message"); // icon and text, empty for none
    QTest::addColumn<int>("ended");

    const QString newer = QStringLiteral("4:有最新版本：V");
    QTest::newRow("ten characters, newer") << "1.2.3" << 200 << QByteArray("1.2.345678") << newer + "1.2.345678" << 1;
    QTest::newRow("same") << "1.2.3" << 200 << QByteArray("1.2.3") << "" << 1;
    QTest::newRow("older minor") << "1.2.3" << 200 << QByteArray("1.1.9") << "" << 1;
    QTest::newRow("trimmed") << "1.2.3" << 200 << QByteArray("  1.3.0  ") << newer + "1.3.0" << 1;
    QTest::newRow("a line saved by an editor: CR LF behind") << "1.2.3" << 200 << QByteArray("2.5.0\r\n")
                                                             << newer + "2.5.0\r\n" << 1;
    QTest::newRow("two fields") << "1.2.3" << 200 << QByteArray("1.2") << "" << 1;
    QTest::newRow("four fields") << "1.2.3" << 200 << QByteArray("1.2.4.0") << "" << 1;
    QTest::newRow("not numeric") << "1.2.3" << 200 << QByteArray("1.x.3") << "" << 1;
    QTest::newRow("eleven characters") << "1.2.3" << 200 << QByteArray("1.2.3456789") << "" << 1;
    QTest::newRow("lost in single precision") << "3.0.0" << 200 << QByteArray("3.0.1") << "" << 1;
    QTest::newRow("a step in single precision") << "3.0.1" << 200 << QByteArray("3.0.2") << newer + "3.0.2" << 1;
    QTest::newRow("a field too large fails the handler") << "1.2.3" << 200 << QByteArray("1e40.0.0") << "" << 0;
    QTest::newRow("404") << "1.2.3" << 404 << QByteArray() << "1:请保持网络畅通！" << 1;
}

void UXmlHttpTest::updateCheck()
{
    QFETCH(QString, running);
    QFETCH(int, status);
    QFETCH(QByteArray, file);
    QFETCH(QString, message);
    QFETCH(int, ended);

    LocalHttpServer server(
        [&](const QByteArray&) { return status == 200 ? HttpAnswer{200, file} : HttpAnswer::error(status); });
    const QString vendor = server.base() + QStringLiteral("/vendor/");
    FakeMessages messages;
    FakeLauncher launcher;
    uXMLHTTP control;
    int endings = 0;
    const ProgramVersion runningVersion{running[0].digitValue(), running[2].digitValue(), running.mid(4).toInt()};
    UpdateCheck updateCheck(control, messages, launcher, vendor, runningVersion, [&] { ++endings; });
    updateCheck.StartUpdateCheck();
    QTRY_VERIFY(control.DownOK());

    QCOMPARE(server.targets, QList<QByteArray>{"/vendor/chengchuan/newver.txt"});
    QStringList shown;
    for (const ShownMessage& shownMessage : messages.shown)
        shown.append(QString::number(int(shownMessage.icon)) + ":" + shownMessage.text);
    QCOMPARE(shown, message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(launcher.addresses, message.startsWith('4') ? QStringList{vendor + "chengchuan/"} : QStringList());
    QCOMPARE(endings, ended);
    QVERIFY(!updateCheckService(messages, launcher, QString())); // no update server: no check at all
}

QTEST_GUILESS_MAIN(UXmlHttpTest)
#include "tst_uxmlhttp.moc"
