#include "platform/systemservices.h"

#include <QSet>
#include <QtTest>

#include <array>

class SystemRandomTest : public QObject {
    Q_OBJECT

private slots:
    void valuesLieInTheUnitInterval();
    void randomizeAlwaysMovesTheGenerator();
    void redrawsRightAfterRandomizeGiveNewValues();
};

void SystemRandomTest::valuesLieInTheUnitInterval()
{
    SystemRandom random;
    double sum = 0;
    std::array<int, 10> tenths{};
    constexpr int draws = 200000;
    for (int i = 0; i < draws; ++i) {
        if (i % 7 == 0)
            random.Randomize();
        const float value = random.Rnd();
        QVERIFY(value >= 0.0f && value < 1.0f);
        sum += value;
        ++tenths[size_t(value * 10.0f)];
    }
    QVERIFY(std::abs(sum / draws - 0.5) < 0.01);
    for (int count : tenths)
        QVERIFY(std::abs(count - draws / 10) < 1000);
}

void SystemRandomTest::randomizeAlwaysMovesTheGenerator()
{
    // However close together the calls come, the generator never stays put:
    // a copy taken before Randomize goes on differently from the original.
    SystemRandom random;
    for (int i = 0; i < 20000; ++i) {
        SystemRandom before = random;
        random.Randomize();
        SystemRandom after = random;
        const std::array<float, 3> a{before.Rnd(), before.Rnd(), before.Rnd()};
        const std::array<float, 3> b{after.Rnd(), after.Rnd(), after.Rnd()};
        QVERIFY(a != b);
    }
}

void SystemRandomTest::redrawsRightAfterRandomizeGiveNewValues()
{
    // The forecast redraws right after Randomize; a re-seed from the clock
    // alone would give the same value again and again.
    SystemRandom random;
    QSet<float> values;
    for (int i = 0; i < 10000; ++i) {
        random.Randomize();
        values.insert(random.Rnd());
    }
    QVERIFY(values.size() > 9900);
}

QTEST_GUILESS_MAIN(SystemRandomTest)

#include "tst_systemrandom.moc"
