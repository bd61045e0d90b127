#include "fakes.h"
#include "platform/runtimefailure.h"
#include "platform/systemservices.h"

#include <QtTest>

#include <cstdio>
#include <functional>

using Routine = std::function<void()>;
Q_DECLARE_METATYPE(Routine)

class RuntimeFailureTest : public QObject {
    Q_OBJECT

private slots:
    void unhandledFailureReportsAndEnds_data();
    void unhandledFailureReportsAndEnds();
    void processEndsAfterItsLastStep();
};

void RuntimeFailureTest::unhandledFailureReportsAndEnds_data()
{
    QTest::addColumn<Routine>("routine");
    QTest::addColumn<QString>("report"); // empty: none, and the program goes on

    QTest::newRow("no failure") << Routine([] {}) << "";
    QTest::newRow("a run-time error")
        << Routine([] { throw RuntimeError(RuntimeError::SubscriptOutOfRange); }) << "运行时错误 '9':\n\n下标越界";
    QTest::newRow("an allocation failure") << Routine([] { throw std::bad_alloc(); }) << "运行时错误 '7':\n\n内存不足";
}

void RuntimeFailureTest::unhandledFailureReportsAndEnds()
{
    QFETCH(Routine, routine);
    QFETCH(QString, report);
    FakeMessages messages;
    RecordingProcess process;
    runEventRoutine(messages, process, routine);
    QCOMPARE(messages.shown.size(), report.isEmpty() ? 0 : 1);
    for (const ShownMessage& shown : messages.shown) {
        QCOMPARE(shown.icon, MessageIcon::Critical);
        QCOMPARE(shown.text, report);
    }
    QCOMPARE(process.exitCodes, report.isEmpty() ? QList<int>{} : QList<int>{1});
}

void RuntimeFailureTest::processEndsAfterItsLastStep()
{
    // The real end, in a child: the last step (the running program's hand-over
    // of the clipboard) comes first, and what was written before is not lost.
    QProcess child;
    child.setEnvironment(QProcess::systemEnvironment() << QStringLiteral("END_IN_CHILD=1"));
    child.start(QCoreApplication::applicationFilePath(), {});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitCode(), 7);
    QCOMPARE(child.readAllStandardOutput(), QByteArray("saved\nhanded over\n"));
}

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsSet("END_IN_CHILD")) {
        SystemProcessControl process([] { std::fputs("handed over\n", stdout); });
        std::fputs("saved\n", stdout);
        process.endProcess(7);
    }
    QCoreApplication application(argc, argv);
    RuntimeFailureTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
#include "tst_runtimefailure.moc"
