#include "platform/programfolder.h"

#include <QtTest>

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void put(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

class ProgramFolderTest : public QObject {
    Q_OBJECT

private slots:
    void choose_data();
    void choose();
};

void ProgramFolderTest::choose_data()
{
    QTest::addColumn<bool>("marker");
    QTest::addColumn<QByteArray>("former"); // the history in the former data folder, empty for none
    QTest::addColumn<QByteArray>("current"); // in the data folder; "blocked": a file stands in its place
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QByteArray>("history"); // the chosen folder's afterwards
    QTest::addColumn<bool>("formerLeft");
    QTest::newRow("build tree") << true << QByteArray("old") << QByteArray() << "bin" << QByteArray() << true;
    QTest::newRow("first start") << false << QByteArray() << QByteArray() << "chengchuan" << QByteArray() << false;
    QTest::newRow("moved once") << false << QByteArray("old") << QByteArray() << "chengchuan" << QByteArray("old")
                                << false;
    QTest::newRow("a history of its own") << false << QByteArray("old") << QByteArray("new") << "chengchuan"
                                          << QByteArray("new") << true;
    QTest::newRow("can't be moved: read where it is")
        << false << QByteArray("old") << QByteArray("blocked") << "澄川号码分析台" << QByteArray("old") << true;
}

void ProgramFolderTest::choose()
{
    QFETCH(bool, marker);
    QFETCH(QByteArray, former);
    QFETCH(QByteArray, current);
    QFETCH(QString, chosen);
    QFETCH(QByteArray, history);
    QFETCH(bool, formerLeft);
    QTemporaryDir root;
    const QString executable = root.filePath("bin");
    const QString data = root.filePath("share/chengchuan");
    const QString formerData = root.filePath("share/澄川号码分析台");
    QVERIFY(QDir().mkpath(executable));
    if (marker)
        put(QDir(executable).filePath(programfolder::buildTreeMarker), {});
    if (!former.isEmpty())
        put(QDir(formerData).filePath("list.ocd"), former);
    if (current == "blocked")
        put(data, current);
    else if (!current.isEmpty())
        put(QDir(data).filePath("list.ocd"), current);

    const QString answer = programfolder::choose(executable, data, formerData, QStringLiteral("list.ocd"));
    QCOMPARE(QFileInfo(answer).fileName(), chosen);
    QVERIFY(QFileInfo(answer).isDir()); // the data folder made with its parents
    QCOMPARE(contents(QDir(answer).filePath("list.ocd")), history);
    QCOMPARE(QFileInfo::exists(formerData), formerLeft);
    if (formerLeft)
        QCOMPARE(contents(QDir(formerData).filePath("list.ocd")), former);
}

QTEST_GUILESS_MAIN(ProgramFolderTest)
#include "tst_programfolder.moc"
