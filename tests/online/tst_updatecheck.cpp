#include "fakes.h"
#include "localhttpserver.h"
#include "online/updatecheck.h"
#include "online/uxmlhttp.h"

#include <QtTest>

namespace {

ProgramVersion versionOf(const QString& text)
{
    const QStringList fields = text.split(QLatin1Char('.'));
    return {fields[0].toInt(), fields[1].toInt(), fields[2].toInt()};
}

QStringList shown(const FakeMessages& messages)
{
    QStringList texts;
    for (const ShownMessage& message : messages.shown)
        texts.append(QString::number(int(message.icon)) + QLatin1Char(':') + message.text);
    return texts;
}

} // namespace

class UpdateCheckTest : public QObject {
    Q_OBJECT

private slots:
    void versionFile_data();
    void versionFile();
    void failedRequests_data();
    void failedRequests();
    void noUpdateServerSendsNothing();
};

void UpdateCheckTest::versionFile_data()
{
    QTest::addColumn<QString>("running");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("told"); // the version the message names, empty for none

    QTest::newRow("newer revision") << "1.2.3" << QByteArray("1.2.4") << "1.2.4";
    QTest::newRow("same") << "1.2.3" << QByteArray("1.2.3") << "";
    QTest::newRow("older minor") << "1.2.3" << QByteArray("1.1.9") << "";
    QTest::newRow("older major") << "1.2.3" << QByteArray("0.9.99") << "";
    QTest::newRow("trimmed") << "1.2.3" << QByteArray("  1.3.0  ") << "1.3.0";
    QTest::newRow("two fields") << "1.2.3" << QByteArray("1.2") << "";
    QTest::newRow("four fields") << "1.2.3" << QByteArray("1.2.3.4") << "";
    QTest::newRow("not numeric") << "1.2.3" << QByteArray("1.x.3") << "";
    QTest::newRow("longer than 10") << "1.2.3" << QByteArray("12345.12345") << "";
    QTest::newRow("lost in single precision") << "3.0.0" << QByteArray("3.0.1") << "";
    QTest::newRow("a step above in single precision") << "3.0.1" << QByteArray("3.0.2") << "3.0.2";
    QTest::newRow("minor runs into major") << "2.4.303" << QByteArray("1.1005.0") << "1.1005.0";
    QTest::newRow("too large a field fails the handler") << "1.2.3" << QByteArray("1e40.0.0") << "";
}

void UpdateCheckTest::versionFile()
{
    QFETCH(QString, running);
    QFETCH(QByteArray, file);
    QFETCH(QString, told);

    LocalHttpServer server([&](const HttpRequest&) { return HttpAnswer::ok(file); });
    FakeMessages messages;
    FakeLauncher launcher;
    uXMLHTTP control;
    int ended = 0;
    const QString vendor = server.base() + QStringLiteral("/vendor/");
    UpdateCheck check(control, messages, launcher, vendor, versionOf(running), [&] { ++ended; });
    check.StartUpdateCheck();
    QTRY_VERIFY(control.DownOK());

    QCOMPARE(server.requests.size(), 1);
    QCOMPARE(server.requests[0].target, QByteArray("/vendor/chengchuan/newver.txt"));
    if (told.isEmpty()) {
        QCOMPARE(shown(messages), QStringList());
        QVERIFY(launcher.addresses.isEmpty());
    } else {
        QCOMPARE(shown(messages), QStringList{"4:有最新版本：V" + told});
        QCOMPARE(launcher.addresses, QStringList{vendor + "chengchuan/"});
    }
    // A handler that failed never counts the check as ended.
    QCOMPARE(ended, file.startsWith("1e40") ? 0 : 1);
}

void UpdateCheckTest::failedRequests_data()
{
    QTest::addColumn<QString>("route");
    QTest::addColumn<int>("ended");
    QTest::newRow("404") << "/404" << 1;
    QTest::newRow("refused") << "refused" << 1;
    QTest::newRow("12029 is never heard of") << "/12029" << 0;
}

void UpdateCheckTest::failedRequests()
{
    QFETCH(QString, route);
    QFETCH(int, ended);

    LocalHttpServer server([](const HttpRequest& request) {
        return HttpAnswer::withStatus(request.target.startsWith("/404") ? 404 : 12029, "No");
    });
    FakeMessages messages;
    FakeLauncher launcher;
    uXMLHTTP control;
    int endings = 0;
    const QString base = (route == QLatin1String("refused") ? LocalHttpServer::refusedBase() : server.base() + route)
                         + QLatin1Char('/');
    UpdateCheck check(control, messages, launcher, base, {1, 2, 3}, [&] { ++endings; });
    check.StartUpdateCheck();
    QTRY_VERIFY(control.DownOK());

    QCOMPARE(endings, ended);
    QCOMPARE(shown(messages), ended ? QStringList{"1:请保持网络畅通！"} : QStringList());
    QVERIFY(launcher.addresses.isEmpty());
}

void UpdateCheckTest::noUpdateServerSendsNothing()
{
    FakeMessages messages;
    FakeLauncher launcher;
    QVERIFY(!updateCheckService(messages, launcher, QString()));
    QVERIFY(updateCheckService(messages, launcher, QStringLiteral("http://127.0.0.1:9/")));
}

QTEST_GUILESS_MAIN(UpdateCheckTest)
#include "tst_updatecheck.moc"
