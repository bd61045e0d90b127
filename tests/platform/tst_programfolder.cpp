#include "platform/programfolder.h"

#include <QtTest>

class ProgramFolderTest : public QObject {
    Q_OBJECT

private slots:
    void choose_data();
    void choose();
};

void ProgramFolderTest::choose_data()
{
    QTest::addColumn<bool>("marker");
    QTest::addColumn<QByteArray>("former"); // the history in the former data folder
    QTest::addColumn<QByteArray>("current"); // in the data folder; "blocked": a file stands in its place
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QByteArray>("history"); // the chosen folder's afterwards
    QTest::newRow("build tree") << true << QByteArray("old") << QByteArray() << "bin" << QByteArray();
    QTest::newRow("moved once") << false << QByteArray("old") << QByteArray() << "chengchuan" << QByteArray("old");
    QTest::newRow("a history of its own") << false << QByteArray("old") << QByteArray("new") << "chengchuan"
                                          << QByteArray("new");
    QTest::newRow("can't be moved: read where it is")
        << false << QByteArray("old") << QByteArray("blocked") << "澄川号码分析台" << QByteArray("old");
}

void ProgramFolderTest::choose()
{
    QFETCH(bool, marker);
    QFETCH(QByteArray, former);
    QFETCH(QByteArray, current);
    QFETCH(QString, chosen);
    QFETCH(QByteArray, history);
    QTemporaryDir root;
    const QDir dir(root.path());
    const auto put = [&](const QString& path, const QByteArray& bytes) {
        QVERIFY(dir.mkpath(QFileInfo(dir.filePath(path)).path()));
        QFile file(dir.filePath(path));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    put(QStringLiteral("bin/") + (marker ? programfolder::buildTreeMarker : QStringLiteral("chengchuan")), {});
    put("share/澄川号码分析台/list.ocd", former);
    if (!current.isEmpty())
        put(current == "blocked" ? "share/chengchuan" : "share/chengchuan/list.ocd", current);

    const QString answer = programfolder::choose(dir.filePath("bin"), dir.filePath("share/chengchuan"),
                                                 dir.filePath("share/澄川号码分析台"), QStringLiteral("list.ocd"));
    QCOMPARE(QFileInfo(answer).fileName(), chosen);
    QFile chosenHistory(QDir(answer).filePath("list.ocd"));
    QCOMPARE(chosenHistory.open(QIODevice::ReadOnly) ? chosenHistory.readAll() : QByteArray(), history);
    // The former history stays where it is unless it was moved, and then its folder goes.
    const bool moved = answer.endsWith("share/chengchuan") && current.isEmpty();
    QCOMPARE(QFileInfo::exists(dir.filePath("share/澄川号码分析台")), !moved);
    QVERIFY(QFileInfo(dir.filePath("share/chengchuan")).isDir() != (current == "blocked" || marker));
}

QTEST_GUILESS_MAIN(ProgramFolderTest)
#include "tst_programfolder.moc"
