#include "localhttpserver.h"
#include "online/uxmlhttp.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

QByteArray fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

} // namespace

class UXmlHttpTest : public QObject {
    Q_OBJECT

private slots:
    void endOfARequest_data();
    void endOfARequest();
    void abortWhilePollingEndsInSilence();
    void sendWithoutOpenDoesNotPoll();
};

void UXmlHttpTest::endOfARequest_data()
{
    QTest::addColumn<QString>("route"); // "refused" for no server at all
    QTest::addColumn<bool>("withPath");
    QTest::addColumn<bool>("arrived");
    QTest::addColumn<QStringList>("errors");
    QTest::addColumn<QByteArray>("file"); // the target file afterwards; it held "old"

    const QStringList none;
    QTest::newRow("200 without path") << "/body" << false << true << none << QByteArray("old");
    QTest::newRow("200, empty body keeps the file") << "/empty" << true << true << none << QByteArray("old");
    QTest::newRow("200 replaces the file") << "/body" << true << true << none << QByteArray("1.2.4");
    QTest::newRow("404") << "/404" << true << false << QStringList{"没有发现文件?查询或URl"} << QByteArray("old");
    QTest::newRow("418 has no text") << "/418" << false << false << QStringList{""} << QByteArray("old");
    QTest::newRow("12029 ends silently") << "/12029" << false << false << none << QByteArray("old");
    QTest::newRow("70000 does not fit 16 bits") << "/70000" << false << false << none << QByteArray("old");
    QTest::newRow("connection refused is status 0") << "refused" << false << false << QStringList{""} << QByteArray("old");
    QTest::newRow("connection reset is status 0") << "/hangup" << false << false << QStringList{""} << QByteArray("old");
}

void UXmlHttpTest::endOfARequest()
{
    QFETCH(QString, route);
    QFETCH(bool, withPath);
    QFETCH(bool, arrived);
    QFETCH(QStringList, errors);
    QFETCH(QByteArray, file);

    LocalHttpServer server([](const HttpRequest& request) {
        if (request.target == "/body")
            return HttpAnswer::ok("1.2.4");
        if (request.target == "/empty")
            return HttpAnswer::ok("");
        if (request.target == "/hangup")
            return HttpAnswer::hangUp();
        const int status = request.target.mid(1).toInt();
        return HttpAnswer::withStatus(status, "Status", "<html>gone</html>");
    });
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("newver.txt"));
    QFile old(target);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();

    uXMLHTTP control;
    QSignalSpy arrivals(&control, &uXMLHTTP::OnDateArrived);
    QSignalSpy failures(&control, &uXMLHTTP::OnDateErr);
    const QString base = route == QLatin1String("refused") ? LocalHttpServer::refusedBase() : server.base() + route;
    control.Open_(QStringLiteral("get"), base, withPath ? target : QString());
    control.SetRequestHeader(QStringLiteral("X-Probe"), QStringLiteral("1"));
    QVERIFY(!control.DownOK());
    control.Send_();
    QVERIFY(control.tmrReader->isActive());
    QTRY_VERIFY(control.DownOK());

    QVERIFY(!control.tmrReader->isActive());
    QCOMPARE(control.ReadyState(), 4);
    QCOMPARE(arrivals.count(), arrived ? 1 : 0);
    QStringList texts;
    for (const QList<QVariant>& failure : failures)
        texts.append(failure.at(0).toString());
    QCOMPARE(texts, errors);
    QCOMPARE(fileText(target), file);
    if (route == QLatin1String("refused") || route == QLatin1String("/hangup")) {
        QCOMPARE(control.Status(), 0);
    } else {
        QCOMPARE(server.requests.size(), 1);
        QCOMPARE(server.requests[0].method, QByteArray("GET"));
        QCOMPARE(server.requests[0].header("X-Probe"), QByteArray("1"));
    }
}

void UXmlHttpTest::abortWhilePollingEndsInSilence()
{
    LocalHttpServer server([](const HttpRequest&) { return HttpAnswer::silence(); });
    uXMLHTTP control;
    QSignalSpy ticks(&control, &uXMLHTTP::OnReadyStateChange);
    QSignalSpy arrivals(&control, &uXMLHTTP::OnDateArrived);
    QSignalSpy failures(&control, &uXMLHTTP::OnDateErr);
    control.Open_(QStringLiteral("GET"), server.base() + QStringLiteral("/newver.txt"));
    control.Send_();
    QTRY_COMPARE(server.requests.size(), 1);
    QVERIFY(ticks.wait());
    QVERIFY(ticks.count() >= 1);

    control.Abort_();
    QVERIFY(!control.tmrReader->isActive());
    const qsizetype ticksAtAbort = ticks.count();
    QVERIFY(!failures.wait(200));
    QCOMPARE(ticks.count(), ticksAtAbort);
    QCOMPARE(arrivals.count(), 0);
    QVERIFY(!control.DownOK());
}

void UXmlHttpTest::sendWithoutOpenDoesNotPoll()
{
    uXMLHTTP control;
    control.Send_();
    QVERIFY(!control.tmrReader->isActive());
    QCOMPARE(control.tmrReader->interval(), 10);
}

QTEST_GUILESS_MAIN(UXmlHttpTest)
#include "tst_uxmlhttp.moc"
