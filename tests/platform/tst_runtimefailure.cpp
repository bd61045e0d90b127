#include "fakes.h"
#include "platform/runtimefailure.h"

#include <QtTest>

#include <functional>
#include <new>

using Failing = std::function<void()>;
Q_DECLARE_METATYPE(Failing)

class RuntimeFailureTest : public QObject {
    Q_OBJECT

private slots:
    void unhandledFailureReportsAndEnds_data();
    void unhandledFailureReportsAndEnds();
    void routineWithoutFailureEndsNothing();
};

void RuntimeFailureTest::unhandledFailureReportsAndEnds_data()
{
    QTest::addColumn<Failing>("failing");
    QTest::addColumn<QString>("report");
    QTest::newRow("run-time error") << Failing([] { throw RuntimeError(RuntimeError::SubscriptOutOfRange); })
                                    << QStringLiteral("运行时错误 '9':\n\n下标越界");
    QTest::newRow("an allocation that fails") << Failing([] { throw std::bad_alloc(); })
                                              << QStringLiteral("运行时错误 '7':\n\n内存不足");
}

void RuntimeFailureTest::unhandledFailureReportsAndEnds()
{
    QFETCH(Failing, failing);
    QFETCH(QString, report);
    FakeMessages messages;
    RecordingProcess process;
    bool reachedBehindFailure = false;
    runEventRoutine(messages, process, [&] {
        failing();
        reachedBehindFailure = true;
    });
    QVERIFY(!reachedBehindFailure);
    QCOMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(messages.shown[0].text, report);
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

QTEST_GUILESS_MAIN(RuntimeFailureTest)
#include "tst_runtimefailure.moc"
