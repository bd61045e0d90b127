#include "settings/ballranges.h"
#include "settings/rangetexts.h"

#include <QtTest>

class RangeTextsTest : public QObject {
    Q_OBJECT

private slots:
    void sixRangesOfThisRun();
};

void RangeTextsTest::sixRangesOfThisRun()
{
    BallRanges ranges;
    ranges.BallMin = {1, 1, 1, 1, 1, 1};
    ranges.BallMax = {33, 33, 33, 33, 33, 33};
    QCOMPARE(rangetexts::sixRanges(ranges),
             QStringLiteral("球1取值范围:1-33\r\n球2取值范围:1-33\r\n球3取值范围:1-33\r\n"
                            "球4取值范围:1-33\r\n球5取值范围:1-33\r\n球6取值范围:1-33\r\n"));

    ranges.min(2) = 12; // a reversed pair and a stored "abc" read as 0 show as they stand
    ranges.max(2) = 5;
    ranges.min(6) = 0;
    const QStringList lines = rangetexts::sixRanges(ranges).split(QStringLiteral("\r\n"));
    QCOMPARE(lines.at(1), QStringLiteral("球2取值范围:12-5"));
    QCOMPARE(lines.at(5), QStringLiteral("球6取值范围:0-33"));
}

QTEST_GUILESS_MAIN(RangeTextsTest)
#include "tst_rangetexts.moc"
