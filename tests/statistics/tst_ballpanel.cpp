#include "settings/ballranges.h"
#include "settings/settingsstore.h"
#include "statistics/ballpanel.h"

#include <QTemporaryDir>
#include <QtTest>

#include <optional>

namespace {

// A settings store in a temporary folder, never the user's.
struct TempStore {
    QTemporaryDir folder;
    IniSettingsStore store{folder.path(), QStringLiteral("ballpanel-test")};
};

BallRanges defaultRanges()
{
    BallRanges ranges;
    ranges.BallMin.fill(1);
    ranges.BallMax.fill(33);
    return ranges;
}

} // namespace

class BallPanelTest : public QObject {
    Q_OBJECT

private slots:
    void loadsSavedPositions_data();
    void loadsSavedPositions();
    void confirmSavesPositionsAndRange_data();
    void confirmSavesPositionsAndRange();
};

void BallPanelTest::loadsSavedPositions_data()
{
    // The lists of the panel hold 5 entries here, put at 0 and 4 by the caller.
    QTest::addColumn<std::optional<QString>>("storedMin");
    QTest::addColumn<std::optional<QString>>("storedMax");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<int>("maxIndex");

    const std::optional<QString> missing;
    QTest::newRow("nothing saved: first and last") << missing << missing << 0 << 4;
    QTest::newRow("saved positions") << std::optional<QString>("2") << std::optional<QString>("3") << 2 << 3;
    QTest::newRow("not numeric: first and last")
        << std::optional<QString>("abc") << std::optional<QString>("") << 0 << 4;
    QTest::newRow("beyond the end: stays where the caller put it")
        << std::optional<QString>("5") << std::optional<QString>("17") << 0 << 4;
    QTest::newRow("below -1: stays") << std::optional<QString>("-2") << std::optional<QString>("-7") << 0 << 4;
    QTest::newRow("-1 is no entry selected") << std::optional<QString>("-1") << std::optional<QString>("-1") << -1 << -1;
    QTest::newRow("numeric texts in any form: blanks, halves to even")
        << std::optional<QString>(" 1 ") << std::optional<QString>("2.5") << 1 << 2;
    QTest::newRow("too large for a whole number: stays")
        << std::optional<QString>("1e20") << std::optional<QString>("3") << 0 << 3;
}

void BallPanelTest::loadsSavedPositions()
{
    QFETCH(std::optional<QString>, storedMin);
    QFETCH(std::optional<QString>, storedMax);
    QFETCH(int, minIndex);
    QFETCH(int, maxIndex);
    TempStore temp;
    if (storedMin)
        temp.store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MIN"), *storedMin);
    if (storedMax)
        temp.store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MAX"), *storedMax);
    // Another ball's keys and the ranges' section don't count.
    temp.store.write(QStringLiteral("设置I"), QStringLiteral("球4取值MIN"), QStringLiteral("1"));
    temp.store.write(QStringLiteral("设置M"), QStringLiteral("球3取值MIN"), QStringLiteral("1"));

    const ballpanel::ListPositions positions =
        ballpanel::loadPositions(temp.store, QStringLiteral("3"), 5, 5, ballpanel::ListPositions{0, 4});
    QCOMPARE(positions.minIndex, minIndex);
    QCOMPARE(positions.maxIndex, maxIndex);
}

void BallPanelTest::confirmSavesPositionsAndRange_data()
{
    QTest::addColumn<QString>("ball");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<QString>("minText");
    QTest::addColumn<int>("maxIndex");
    QTest::addColumn<QString>("maxText");
    QTest::addColumn<int>("rangeBall");
    QTest::addColumn<int>("rangeMin");
    QTest::addColumn<int>("rangeMax");

    QTest::newRow("ball 2") << "2" << 1 << "4" << 20 << "23" << 2 << 4 << 23;
    QTest::newRow("a reversed pair is taken as it stands") << "1" << 9 << "12" << 2 << "5" << 1 << 12 << 5;
    QTest::newRow("empty history: 0 to 0") << "5" << 0 << "0" << 0 << "0" << 5 << 0 << 0;
    QTest::newRow("ball 7 writes positions, no range") << "7" << 1 << "2" << 10 << "12" << 1 << 1 << 33;
    QTest::newRow("ball 8 writes positions, no range") << "8" << 0 << "0" << 3 << "3" << 1 << 1 << 33;
    QTest::newRow("no entry selected leaves the range") << "3" << -1 << "" << -1 << "" << 3 << 1 << 33;
}

void BallPanelTest::confirmSavesPositionsAndRange()
{
    QFETCH(QString, ball);
    QFETCH(int, minIndex);
    QFETCH(QString, minText);
    QFETCH(int, maxIndex);
    QFETCH(QString, maxText);
    QFETCH(int, rangeBall);
    QFETCH(int, rangeMin);
    QFETCH(int, rangeMax);
    TempStore temp;
    BallRanges ranges = defaultRanges();
    ballpanel::confirm(temp.store, ranges, ball, minIndex, minText, maxIndex, maxText);

    QCOMPARE(temp.store.read("设置I", "球" + ball + "取值MIN", "none"), QString::number(minIndex));
    QCOMPARE(temp.store.read("设置I", "球" + ball + "取值MAX", "none"), QString::number(maxIndex));
    BallRanges expected = defaultRanges();
    expected.min(rangeBall) = rangeMin;
    expected.max(rangeBall) = rangeMax;
    QCOMPARE(ranges.BallMin, expected.BallMin);
    QCOMPARE(ranges.BallMax, expected.BallMax);
    // The ranges reach "设置M" only at exit.
    QCOMPARE(temp.store.read("设置M", "球" + ball + "取值MIN", "none"), QStringLiteral("none"));
}

QTEST_GUILESS_MAIN(BallPanelTest)
#include "tst_ballpanel.moc"
