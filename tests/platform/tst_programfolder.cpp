#include "platform/programfolder.h"

#include <QtTest>

class ProgramFolderTest : public QObject {
    Q_OBJECT

private slots:
    void markerChoosesTheFolder();
};

void ProgramFolderTest::markerChoosesTheFolder()
{
    QTemporaryDir root;
    const QString executable = root.filePath("bin");
    const QString data = root.filePath("share/chengchuan/data");
    QVERIFY(QDir().mkpath(executable));

    // Installed: no marker, so the data folder, made with its parents.
    QCOMPARE(programfolder::choose(executable, data), data);
    QVERIFY(QFileInfo(data).isDir());

    // The build tree: the marker keeps the files beside the executable.
    QFile marker(QDir(executable).filePath(programfolder::buildTreeMarker));
    QVERIFY(marker.open(QIODevice::WriteOnly));
    marker.close();
    QCOMPARE(programfolder::choose(executable, data), executable);
}

QTEST_GUILESS_MAIN(ProgramFolderTest)
#include "tst_programfolder.moc"
