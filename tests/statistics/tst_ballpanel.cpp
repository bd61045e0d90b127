#include "settings/ballranges.h"
#include "settings/settingsstore.h"
#include "statistics/ballpanel.h"

#include <QTemporaryDir>
#include <QtTest>

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
    // Both lists hold 5 entries, put at 0 and 4 by the caller. A null text is
    // a key never saved.
    QTest::addColumn<QString>("storedMin");
    QTest::addColumn<QString>("storedMax");
    QTest::addColumn<int>("minIndex");
    QTest::addColumn<int>("maxIndex");

    QTest::newRow("nothing saved: first and last") << QString() << QString() << 0 << 4;
    QTest::newRow("saved positions") << "2" << "3" << 2 << 3;
    QTest::newRow("not numeric: first and last") << "abc" << "" << 0 << 4;
    QTest::newRow("past the end or below -1: stays") << "5" << "-2" << 0 << 4;
    QTest::newRow("the last entry and -1 (no entry) are positions") << "4" << "-1" << 4 << -1;
}

void BallPanelTest::loadsSavedPositions()
{
    QFETCH(QString, storedMin);
    QFETCH(QString, storedMax);
    QFETCH(int, minIndex);
    QFETCH(int, maxIndex);
    TempStore temp;
    if (!storedMin.isNull())
        temp.store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MIN"), storedMin);
    if (!storedMax.isNull())
        temp.store.write(QStringLiteral("设置I"), QStringLiteral("球3取值MAX"), storedMax);
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
    QTest::addColumn<int>("rangeMin"); // the ball's range afterwards, for balls 1 to 6
    QTest::addColumn<int>("rangeMax");

    QTest::newRow("ball 2") << "2" << 1 << "4" << 20 << "23" << 4 << 23;
    QTest::newRow("a reversed pair is taken as it stands") << "1" << 9 << "12" << 2 << "5" << 12 << 5;
    QTest::newRow("ball 6 of an empty history: 0 to 0") << "6" << 0 << "0" << 0 << "0" << 0 << 0;
    QTest::newRow("no entry selected leaves the range") << "3" << -1 << "" << -1 << "" << 1 << 33;
    QTest::newRow("ball 7 writes positions, no range") << "7" << 1 << "2" << 10 << "12" << 0 << 0;
    QTest::newRow("ball 8 writes positions, no range") << "8" << 0 << "0" << 3 << "3" << 0 << 0;
}

void BallPanelTest::confirmSavesPositionsAndRange()
{
    QFETCH(QString, ball);
    QFETCH(int, minIndex);
    QFETCH(QString, minText);
    QFETCH(int, maxIndex);
    QFETCH(QString, maxText);
    QFETCH(int, rangeMin);
    QFETCH(int, rangeMax);
    TempStore temp;
    BallRanges ranges = defaultRanges();
    ballpanel::confirm(temp.store, ranges, ball, minIndex, minText, maxIndex, maxText);

    QCOMPARE(temp.store.read("设置I", "球" + ball + "取值MIN", "none"), QString::number(minIndex));
    QCOMPARE(temp.store.read("设置I", "球" + ball + "取值MAX", "none"), QString::number(maxIndex));
    BallRanges expected = defaultRanges();
    if (ball.toInt() <= BallRanges::RedBalls) {
        expected.min(ball.toInt()) = rangeMin;
        expected.max(ball.toInt()) = rangeMax;
    }
    QCOMPARE(ranges.BallMin, expected.BallMin);
    QCOMPARE(ranges.BallMax, expected.BallMax);
    // The ranges reach "设置M" only at exit.
    QCOMPARE(temp.store.read("设置M", "球" + ball + "取值MIN", "none"), QStringLiteral("none"));
}

QTEST_GUILESS_MAIN(BallPanelTest)
#include "tst_ballpanel.moc"
