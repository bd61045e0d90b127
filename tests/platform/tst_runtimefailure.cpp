#include "fakes.h"
#include "platform/runtimefailure.h"

#include <QtTest>

class RuntimeFailureTest : public QObject {
    Q_OBJECT

private slots:
    void unhandledFailureReportsAndEnds();
    void routineWithoutFailureEndsNothing();
    void allocationFailureIsError7();
};

void RuntimeFailureTest::unhandledFailureReportsAndEnds()
{
    FakeMessages messages;
    RecordingProcess process;
    bool reachedBehindFailure = false;
    runEventRoutine(messages, process, [&] {
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
        reachedBehindFailure = true; // NOLINT: never reached
    });
    QVERIFY(!reachedBehindFailure);
    QCOMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].icon, MessageIcon::Critical);
    QVERIFY(messages.shown[0].text.contains(QStringLiteral("'9'")));
    QVERIFY(messages.shown[0].text.contains(QStringLiteral("下标越界")));
    QCOMPARE(process.exitCodes, QList<int>{1});
}

void RuntimeFailureTest::routineWithoutFailureEndsNothing()
{
    FakeMessages messages;
    RecordingProcess process;
    int runs = 0;
    runEventRoutine(messages, process, [&] { ++runs; });
    QCOMPARE(runs, 1);
    QVERIFY(messages.shown.isEmpty());
    QVERIFY(!process.ended());
}

void RuntimeFailureTest::allocationFailureIsError7()
{
    FakeMessages messages;
    RecordingProcess process;
    runEventRoutine(messages, process, [] { throw std::bad_alloc(); });
    QCOMPARE(messages.shown.value(0).text, QStringLiteral("运行时错误 '7':\n\n内存不足"));
    QCOMPARE(process.exitCodes, QList<int>{1});
}

QTEST_GUILESS_MAIN(RuntimeFailureTest)
#include "tst_runtimefailure.moc"
