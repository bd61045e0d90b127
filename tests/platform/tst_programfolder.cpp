#include "platform/programfolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class ProgramFolderTest : public QObject {
    Q_OBJECT

private slots:
    void buildTreeKeepsFilesBesideTheExecutable_data();
    void buildTreeKeepsFilesBesideTheExecutable();
};

void ProgramFolderTest::buildTreeKeepsFilesBesideTheExecutable_data()
{
    QTest::addColumn<bool>("marker");
    QTest::addColumn<QString>("chosen"); // below the temporary root
    QTest::newRow("run from the build tree") << true << "bin";
    QTest::newRow("installed") << false << "share/澄川号码分析台";
}

void ProgramFolderTest::buildTreeKeepsFilesBesideTheExecutable()
{
    QFETCH(bool, marker);
    QFETCH(QString, chosen);
    QTemporaryDir root;
    const QDir top(root.path());
    QVERIFY(top.mkdir(QStringLiteral("bin")));
    if (marker) {
        QFile file(top.filePath(QStringLiteral("bin/") + programfolder::buildTreeMarker));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    // The user's data folder is not there yet, nor its parent.
    const QString data = top.filePath(QStringLiteral("share/澄川号码分析台"));
    const QString folder = programfolder::choose(top.filePath(QStringLiteral("bin")), data);
    QCOMPARE(folder, top.filePath(chosen));
    QVERIFY(QFileInfo(folder).isDir());
    QCOMPARE(QFileInfo::exists(data), !marker); // made only when it is used
}

QTEST_GUILESS_MAIN(ProgramFolderTest)
#include "tst_programfolder.moc"
