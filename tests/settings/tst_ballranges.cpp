#include "platform/appinfo.h"
#include "settings/ballranges.h"
#include "settings/settingsstore.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class BallRangesTest : public QObject {
    Q_OBJECT

private slots:
    void emptyStoreGivesDefaults();
    void storedTextIsConverted_data();
    void storedTextIsConverted();
    void writeThenReadRoundTrips();
    void storeKeepsChineseSectionsAndEveryValueAtOnce();
    void missingKeyGivesFallback();
    void escapedFileReadsAndIsWrittenAsText();
};

void BallRangesTest::emptyStoreGivesDefaults()
{
    QTemporaryDir folder;
    IniSettingsStore store(folder.path(), appinfo::title());
    BallRanges ranges;
    QCOMPARE(ranges.min(1), 0); // nothing read yet
    ballranges::read(store, ranges);
    for (int ball = 1; ball <= 6; ++ball) {
        QCOMPARE(ranges.min(ball), 1);
        QCOMPARE(ranges.max(ball), 33);
    }
}

void BallRangesTest::storedTextIsConverted_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("minimum");
    QTest::newRow("number") << "5" << 5;
    QTest::newRow("not a number leaves 0") << "abc" << 0;
    QTest::newRow("empty leaves 0") << "" << 0;
    QTest::newRow("half to even") << "2.5" << 2;
    QTest::newRow("overflow leaves 0") << "99999999999" << 0;
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

void BallRangesTest::storeKeepsChineseSectionsAndEveryValueAtOnce()
{
    QTemporaryDir folder;
    IniSettingsStore writer(folder.path(), appinfo::title());
    writer.write(QStringLiteral("ForecastBet"), QStringLiteral("过滤"), QStringLiteral("02 08, 26"));
    writer.write(QStringLiteral("设置I"), QStringLiteral("球7取值MAX"), QStringLiteral("12"));
    // A second store sees the values while the first is still open: a process
    // that ends without warning keeps what was written.
    IniSettingsStore reader(folder.path(), appinfo::title());
    QCOMPARE(reader.read(QStringLiteral("ForecastBet"), QStringLiteral("过滤"), {}), QStringLiteral("02 08, 26"));
    QCOMPARE(reader.read(QStringLiteral("设置I"), QStringLiteral("球7取值MAX"), {}), QStringLiteral("12"));
    QVERIFY(writer.filePath().endsWith(QStringLiteral("澄川号码分析台.ini")));
}

void BallRangesTest::missingKeyGivesFallback()
{
    QTemporaryDir folder;
    IniSettingsStore store(QDir(folder.path()).filePath(QStringLiteral("not-yet-made")), appinfo::title());
    QCOMPARE(store.read(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QStringLiteral("1")),
             QStringLiteral("1"));
    store.write(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QString());
    QCOMPARE(store.read(QStringLiteral("ForecastNormal"), QStringLiteral("组数"), QStringLiteral("1")), QString());
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
