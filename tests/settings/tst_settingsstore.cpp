#include "settings/settingsstore.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class SettingsStoreTest : public QObject {
    Q_OBJECT

private slots:
    void escapedFileReadsAndIsWrittenAsText_data();
    void escapedFileReadsAndIsWrittenAsText();
};

void SettingsStoreTest::escapedFileReadsAndIsWrittenAsText_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("lines"); // as they stand in the file written afterwards
    QTest::newRow("Chinese section and key") << "设置I" << "球1取值MIN" << "3" << QByteArray("[设置I]\n球1取值MIN=3\n");
    QTest::newRow("value with a comma stays quoted")
        << "ForecastBet" << "过滤" << "02 08, 26" << QByteArray("[ForecastBet]\n过滤=\"02 08, 26\"\n");
    QTest::newRow("escapes of ASCII stay, Latin-1 is text")
        << "a b" << "c=d;é" << "号" << QByteArray("[a%20b]\nc%3Dd%3Bé=号\n");
    QTest::newRow("beyond 16 bits") << "𠀀" << "k" << "v" << QByteArray("[𠀀]\nk=v\n");
}

void SettingsStoreTest::escapedFileReadsAndIsWrittenAsText()
{
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QByteArray, lines);
    QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath(QStringLiteral("澄川号码分析台.ini"));
    {
        // The file as the program wrote it so far: Qt's own escapes for every
        // name beyond plain ASCII.
        QSettings earlier(path, QSettings::IniFormat);
        earlier.setValue(section + QLatin1Char('/') + key, value);
    }
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains('%'));
    file.close();

    {
        IniSettingsStore store(folder.path(), QStringLiteral("澄川号码分析台"));
        QCOMPARE(store.read(section, key, QStringLiteral("missing")), value);
        store.write(QStringLiteral("设置M"), QStringLiteral("球1取值MAX"), QStringLiteral("30"));
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray written = file.readAll();
    file.close();
    QVERIFY2(written.contains(lines), written.constData());
    QVERIFY2(written.contains("[设置M]\n球1取值MAX=30\n"), written.constData());
    QVERIFY(!written.contains("%U"));

    IniSettingsStore reopened(folder.path(), QStringLiteral("澄川号码分析台"));
    QCOMPARE(reopened.read(section, key, QStringLiteral("missing")), value);
    QCOMPARE(reopened.read(QStringLiteral("设置M"), QStringLiteral("球1取值MAX"), QStringLiteral("missing")),
             QStringLiteral("30"));
}

QTEST_GUILESS_MAIN(SettingsStoreTest)
#include "tst_settingsstore.moc"
