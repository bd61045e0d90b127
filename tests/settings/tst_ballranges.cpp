#include "platform/appinfo.h"
#include "settings/ballranges.h"
#include "settings/rangetexts.h"
#include "settings/settingsstore.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class BallRangesTest : public QObject {
    Q_OBJECT

private slots:
    void storedTextIsConverted_data();
    void storedTextIsConverted();
    void writeThenReadRoundTrips();
    void rangeTextsShowTheRangesAsTheyStand();
    void storeWritesAtOnceAndKeepsEmptyValues();
    void escapedFileReadsAndIsWrittenAsText();
};

void BallRangesTest::storedTextIsConverted_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("minimum");
    QTest::newRow("number") << "5" << 5;
    QTest::newRow("not a number leaves 0") << "abc" << 0;
    QTest::newRow("half to even") << "2.5" << 2;
}

void BallRangesTest::storedTextIsConverted()
{
    QFETCH(QString, stored);
    QFETCH(int, minimum);
    QTemporaryDir folder;
    IniSettingsStore store(folder.path(), appinfo::title());
    store.write(ballranges::section, QStringLiteral("球3取值MIN"), stored);
    BallRanges ranges;
    ballranges::read(store, ranges);
    QCOMPARE(ranges.min(3), minimum);
    QCOMPARE(ranges.min(2), 1);
    QCOMPARE(ranges.max(3), 33);

    // The next exit writes what the run holds.
    ballranges::write(store, ranges);
    QCOMPARE(store.read(ballranges::section, QStringLiteral("球3取值MIN"), QStringLiteral("x")),
             QString::number(minimum));
}

void BallRangesTest::writeThenReadRoundTrips()
{
    QTemporaryDir folder;
    BallRanges written;
    for (int ball = 1; ball <= 6; ++ball) {
        written.min(ball) = ball;
        written.max(ball) = 40 - ball; // a reversed or odd range is stored as it stands
    }
    written.min(6) = -4;
    {
        IniSettingsStore store(folder.path(), appinfo::title());
        ballranges::write(store, written);
    }
    IniSettingsStore reopened(folder.path(), appinfo::title());
    BallRanges read;
    ballranges::read(reopened, read);
    QCOMPARE(read.BallMin, written.BallMin);
    QCOMPARE(read.BallMax, written.BallMax);
    QCOMPARE(reopened.read(QStringLiteral("设置M"), QStringLiteral("球6取值MIN"), {}), QStringLiteral("-4"));
}

void BallRangesTest::rangeTextsShowTheRangesAsTheyStand()
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

void BallRangesTest::storeWritesAtOnceAndKeepsEmptyValues()
{
    QTemporaryDir folder;
    const QString notYetMade = QDir(folder.path()).filePath(QStringLiteral("not-yet-made"));
    IniSettingsStore writer(notYetMade, appinfo::title());
    QCOMPARE(writer.read("ForecastNormal", "组数", "1"), QStringLiteral("1"));
    writer.write("ForecastBet", "过滤", "02 08, 26");
    writer.write("ForecastNormal", "组数", QString());
    // A second store sees the values while the first is still open: a process
    // that ends without warning keeps what was written.
    IniSettingsStore reader(notYetMade, appinfo::title());
    QCOMPARE(reader.read("ForecastBet", "过滤", {}), QStringLiteral("02 08, 26"));
    QCOMPARE(reader.read("ForecastNormal", "组数", "1"), QString()); // stored empty, not missing
    QVERIFY(writer.filePath().endsWith(QStringLiteral("澄川号码分析台.ini")));
}

void BallRangesTest::escapedFileReadsAndIsWrittenAsText()
{
    QTemporaryDir folder;
    {
        // The file as the program wrote it so far: Qt's own escapes for the names.
        QSettings earlier(QDir(folder.path()).filePath(appinfo::title() + ".ini"), QSettings::IniFormat);
        earlier.setValue(QStringLiteral("设置I/球1取值MIN"), QStringLiteral("3"));
        earlier.setValue(QStringLiteral("a b/c=dé𠀀"), QStringLiteral("02 08, 26"));
    }
    IniSettingsStore store(folder.path(), appinfo::title());
    QCOMPARE(store.read(QStringLiteral("设置I"), QStringLiteral("球1取值MIN"), {}), QStringLiteral("3"));
    store.write(QStringLiteral("设置M"), QStringLiteral("球1取值MAX"), QStringLiteral("30"));
    QFile file(store.filePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    // Escapes of ASCII stay: an "=" or a blank would change what the line says.
    QCOMPARE(file.readAll(), QByteArray("[a%20b]\nc%3Ddé𠀀=\"02 08, 26\"\n\n[设置I]\n球1取值MIN=3\n\n[设置M]\n球1取值MAX=30\n"));
    IniSettingsStore reopened(folder.path(), appinfo::title());
    QCOMPARE(reopened.read(QStringLiteral("a b"), QStringLiteral("c=dé𠀀"), {}), QStringLiteral("02 08, 26"));
}

QTEST_GUILESS_MAIN(BallRangesTest)
#include "tst_ballranges.moc"
