#include "settings/ballranges.h"
#include "settings/rangetexts.h"

#include <QtTest>

class RangeTextsTest : public QObject {
    Q_OBJECT

private slots:
    void rangesAsTheyStand();
};

void RangeTextsTest::rangesAsTheyStand()
{
    // Every value differs, ball 4 is reversed and ball 5's stored "abc" was read as 0.
    BallRanges ranges;
    ranges.BallMin = {1, 2, 3, 12, 0, 6};
    ranges.BallMax = {33, 32, 31, 5, 29, 28};
    QCOMPARE(rangetexts::sixRanges(ranges),
             QStringLiteral("球1取值范围:1-33\r\n球2取值范围:2-32\r\n球3取值范围:3-31\r\n"
                            "球4取值范围:12-5\r\n球5取值范围:0-29\r\n球6取值范围:6-28\r\n"));

    const std::optional<rangetexts::ShownRange> six = rangetexts::rangeOf(ranges, 6);
    QVERIFY(six);
    QCOMPARE(six->minimum + "-" + six->maximum, QStringLiteral("6-28"));
    QVERIFY(!rangetexts::rangeOf(ranges, 7));
}

QTEST_GUILESS_MAIN(RangeTextsTest)
#include "tst_rangetexts.moc"
