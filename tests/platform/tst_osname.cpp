#include "fakes.h"
#include "platform/getfileinfo.h"
#include "platform/osname.h"

#include <QtTest>

using getfileinfo::FileVersionFields;
using getfileinfo::FixedFileInfo;
using osname::OsVersionInfoEx;
using osname::WindowsVersionFacts;

using Resource = std::optional<FixedFileInfo>; // nothing: no version resource
Q_DECLARE_METATYPE(Resource)
Q_DECLARE_METATYPE(WindowsVersionFacts)

namespace {

constexpr quint32 words(quint16 high, quint16 low)
{
    return quint32(high) << 16 | low;
}

// "kernel32.dll" with this product version.
WindowsVersionFacts kernel(quint16 a, quint16 b, quint16 c, quint16 d, OsVersionInfoEx info = {})
{
    FixedFileInfo file;
    file.dwProductVersionMS = words(a, b);
    file.dwProductVersionLS = words(c, d);
    return {true, file, info};
}

WindowsVersionFacts noKernel(OsVersionInfoEx info)
{
    return {false, std::nullopt, info};
}

QString joined(const FileVersionFields& f)
{
    return QStringList{f.StrucVersionText, f.FileVersionText, f.ProductVersionText, f.FileFlagsText, f.FileOSText,
                       f.FileTypeText, f.FileSubtypeText}
        .join(QLatin1Char('|'));
}

// Whether exactly one message was shown, saying the file has no version resource.
bool toldNoVersion(const FakeMessages& messages)
{
    return messages.shown.size() == 1 && messages.shown[0].icon == MessageIcon::None
           && messages.shown[0].text == QLatin1String("No Version Info available!");
}

} // namespace

class OsNameTest : public QObject {
    Q_OBJECT

private slots:
    void namesTheSystem_data();
    void namesTheSystem();
    void versionFields_data();
    void versionFields();
    void addressWidth();
};

void OsNameTest::namesTheSystem_data()
{
    QTest::addColumn<WindowsVersionFacts>("facts");
    QTest::addColumn<QString>("name");

    // The record: major, minor, build, platform, CSD text, service pack major and minor, suite, product type.
    QTest::newRow("10") << kernel(10, 0, 10586, 0) << "Windows 10.0.10586.0";
    QTest::newRow("8.1") << kernel(6, 3, 9600, 17415) << "Windows 8.1 [6.3.9600.17415]";
    // The message comes from reading the version fields; the name is made as without the file.
    QTest::newRow("7 SP1, kernel without version resource")
        << WindowsVersionFacts{true, std::nullopt, {6, 1, 7601, 2, {}, 1, 0, 0, 1}}
        << "Windows 7 Ultimate Edition Service Pack 1 [Version: 6.1.7601]";
    QTest::newRow("Server 2008") << kernel(6, 0, 6002, 18005, {6, 0, 6002, 2, {}, 0, 0, 0, 3})
                                 << "Windows Server 2008 Home Premium Edition [Version: 6.0.6002]";
    QTest::newRow("2008 R2, the words touch") << kernel(6, 1, 7601, 0, {6, 1, 7601, 2, {}, 0, 0, 0, 3})
                                              << "Windows Server 2008 R2Home Premium Edition [Version: 6.1.7601]";
    QTest::newRow("kernel 6.2 hands on") << kernel(6, 2, 9200, 0, {6, 2, 9200, 2, {}, 0, 0, 0, 2})
                                         << "Windows 8 Home Basic Edition [Version: 6.2.9200]";
    QTest::newRow("Vista SP 2.1, type 8 stands twice: the first row wins")
        << noKernel({6, 0, 6002, 2, {}, 2, 1, 0, 8})
        << "Windows Vista Server Datacenter Edition (full installation) Service Pack 2.1 [Version: 6.0.6002]";
    QTest::newRow("6.5, type 29") << noKernel({6, 5, 1, 2, {}, 0, 0, 0, 29}) << "未知系统  [Version: 6.5.1]";
    QTest::newRow("XP Professional SP3") << noKernel({5, 1, 2600, 2, {}, 3, 0, 0, 1})
                                         << "Windows XP Professional Service Pack 3 [Version: 5.1.2600]";
    QTest::newRow("2000 Data center") << noKernel({5, 0, 2195, 2, {}, 4, 0, 128, 3})
                                      << "Windows 2000 Data center Service Pack 4 [Version: 5.0.2195]";
    QTest::newRow("2003 R2") << noKernel({5, 2, 3790, 2, {}, 0, 0, 274, 3})
                             << "Windows Server 2003 R2 Enterprise [Version: 5.2.3790]";
    QTest::newRow("NT 4.0 SP6") << noKernel({4, 0, 1381, 2, {}, 6, 0, 0, 1}) << "Windows NT 4.0 [Version: 4.0.1381]";
    QTest::newRow("NT 3.51") << noKernel({3, 51, 1057, 2}) << "Windows NT 3.51 [Version: 3.51.1057]";
    QTest::newRow("95 OSR2") << noKernel({4, 0, 950, 1, "B"}) << "Windows 95 OSR2 [Version: 4.0.950]";
    QTest::newRow("98 SE, SP1") << noKernel({4, 10, 2222, 1, "A", 1}) << "Windows 98 SE [Version: 4.10.2222]";
    QTest::newRow("Me") << noKernel({4, 90, 3000, 1}) << "Windows Millennium Edition [Version: 4.90.3000]";
    QTest::newRow("DOS") << noKernel({0, 0, 0, 0}) << "DOS [Version: 0.0.0]";
    QTest::newRow("platform 3") << noKernel({6, 1, 1, 3}) << "Unknown System Version! [Version: 6.1.1]";
}

void OsNameTest::namesTheSystem()
{
    QFETCH(WindowsVersionFacts, facts);
    QFETCH(QString, name);
    FakeMessages messages;
    QCOMPARE(osname::GetOSName(facts, messages), name);
    QCOMPARE(toldNoVersion(messages), facts.kernelExists && !facts.kernelVersion);
}

void OsNameTest::versionFields_data()
{
    QTest::addColumn<Resource>("info");
    QTest::addColumn<QString>("fields"); // with the subtype "before" beforehand

    QTest::newRow("no resource: the fields keep what they held") << Resource() << "|||old |||before";
    QTest::newRow("kernel32")
        << Resource{{words(1, 0), words(10, 0), words(10586, 1), words(10, 2), words(10586, 3), 0, 262148, 2, 0}}
        << "1.0|10.0.10586.1|10.2.10586.3||NT-Win32|DLL|before";
    QTest::newRow("40000 and more read negative")
        << Resource{{words(1, 40000), 0, 0, words(65535, 32768), words(32767, 40000), 0, 65537, 1, 0}}
        << "1.-25536|0.0.0.0|-1.-32768.32767.-25536||DOS-Win16|App|before";
    QTest::newRow("every flag") << Resource{{0, 0, 0, 0, 0, 63 | 64, 65540, 7, 3}}
        << "0.0|0.0.0.0|0.0.0.0|Debug PreRel Patched Private Info Special |DOS-Win32|Lib|before";
    QTest::newRow("driver 10") << Resource{{0, 0, 0, 0, 0, 2 | 8, 196611, 3, 10}}
                              << "0.0|0.0.0.0|0.0.0.0|PreRel Private |OS/2-16 PM-32|Driver|Comm drv";
    QTest::newRow("drv 11") << Resource{{0, 0, 0, 0, 0, 0, 4, 3, 11}} << "0.0|0.0.0.0|0.0.0.0||Unknown|Driver|before";
    QTest::newRow("ttf") << Resource{{0, 0, 0, 0, 0, 0, 0, 4, 3}} << "0.0|0.0.0.0|0.0.0.0||Unknown|Font|TrueType Font";
    QTest::newRow("font 10") << Resource{{0, 0, 0, 0, 0, 0, 0, 4, 10}} << "0.0|0.0.0.0|0.0.0.0||Unknown|Font|before";
    QTest::newRow("type 6") << Resource{{0, 0, 0, 0, 0, 0, 0, 6, 1}} << "0.0|0.0.0.0|0.0.0.0||Unknown|Unknown|before";
}

void OsNameTest::versionFields()
{
    QFETCH(Resource, info);
    QFETCH(QString, fields);
    FakeMessages messages;
    FileVersionFields read;
    read.FileFlagsText = QStringLiteral("old ");
    read.FileSubtypeText = QStringLiteral("before");
    getfileinfo::GetFileVersionFields(info, read, messages);
    QCOMPARE(joined(read), fields);
    QCOMPARE(toldNoVersion(messages), !info);
}

void OsNameTest::addressWidth()
{
    for (const char* wide : {"x86_64", "arm64", "riscv64", "s390x", "power64"})
        QCOMPARE(osname::addressWidthOf(wide), QStringLiteral("64"));
    for (const char* narrow : {"i386", "arm", "mips", ""})
        QCOMPARE(osname::addressWidthOf(narrow), QStringLiteral("32"));
}

QTEST_GUILESS_MAIN(OsNameTest)

#include "tst_osname.moc"
