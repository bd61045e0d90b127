#include "platform/systemservices.h"

#include <QtTest>

#include <array>

class SystemRandomTest : public QObject {
    Q_OBJECT

private slots:
    void valuesSpreadEvenlyOverTheUnitInterval();
    void randomizeNeverLeavesTheStateUnchanged();
};

void SystemRandomTest::valuesSpreadEvenlyOverTheUnitInterval()
{
    SystemRandom random;
    std::array<int, 10> tenths{};
    constexpr int draws = 200000;
    for (int i = 0; i < draws; ++i) {
        if (i % 7 == 0)
            random.Randomize();
        const float value = random.Rnd();
        QVERIFY(value >= 0.0f && value < 1.0f);
        ++tenths[size_t(value * 10.0f)];
    }
    for (int count : tenths)
        QVERIFY2(std::abs(count - draws / 10) < 1000, qPrintable(QString::number(count)));
}

void SystemRandomTest::randomizeNeverLeavesTheStateUnchanged()
{
    // However close together the calls come, Randomize moves the state on: a
    // copy taken before it goes on differently from the original.
    SystemRandom random;
    for (int i = 0; i < 20000; ++i) {
        SystemRandom before = random;
        random.Randomize();
        SystemRandom after = random;
        const std::array<float, 3> old{before.Rnd(), before.Rnd(), before.Rnd()};
        const std::array<float, 3> now{after.Rnd(), after.Rnd(), after.Rnd()};
        QVERIFY(old != now);
    }
}

QTEST_GUILESS_MAIN(SystemRandomTest)

#include "tst_systemrandom.moc"
