#include "platform/osname.h"

#include "platform/textrules.h"

#include <QSysInfo>

#include <utility>

namespace osname {

namespace {

// The numbers of the Windows product types, searched from the top: the first
// match wins. It is compared with wProductType, which is 1, 2 or 3 on real
// systems, so a workstation reads "Ultimate Edition", a domain controller
// "Home Basic Edition" and a server "Home Premium Edition". That is the text
// the program has always shown; the second row of 8 is never reached.
constexpr std::pair<int, const char*> editions[] = {
    {6, "Business Edition"},
    {16, "Business Edition (N)"},
    {18, "Cluster Server Edition"},
    {8, "Server Datacenter Edition (full installation)"},
    {12, "Server Datacenter Edition (core installation)"},
    {4, "Enterprise Edition"},
    {27, "Enterprise Edition (N)"},
    {10, "Server Enterprise Edition (full installation)"},
    {14, "Server Enterprise Edition (core installation)"},
    {15, "Server Enterprise Edition for Itanium-based Systems"},
    {2, "Home Basic Edition"},
    {5, "Home Basic Edition (N)"},
    {3, "Home Premium Edition"},
    {26, "Home Premium Edition (N)"},
    {19, "Home Server Edition"},
    {24, "Server for Small Business Edition"},
    {9, "Small Business Server"},
    {25, "Small Business Server Premium Edition"},
    {7, "Server Standard Edition (full installation)"},
    {13, "Server Standard Edition (core installation)"},
    {8, "Starter Edition"},
    {23, "Storage Server Enterprise Edition"},
    {20, "Storage Server Express Edition"},
    {21, "Storage Server Standard Edition"},
    {22, "Storage Server Workgroup Edition"},
    {1, "Ultimate Edition"},
    {28, "Ultimate Edition (N)"},
    {0, "An unknown product"},
    {17, "Web Server Edition"},
};

QString edition(quint8 productType)
{
    for (const auto& [value, name] : editions)
        if (value == productType)
            return QString::fromUtf8(name);
    return {};
}

constexpr quint8 serverProduct = 3;

QString windows9xName(const OsVersionInfoEx& info)
{
    const QString& csd = info.szCSDVersion;
    switch (info.dwMinorVersion) {
    case 0:
        return csd == QLatin1String("C") || csd == QLatin1String("B") ? QStringLiteral("Windows 95 OSR2")
                                                                        : QStringLiteral("Windows 95");
    case 10:
        return csd == QLatin1String("A") ? QStringLiteral("Windows 98 SE") : QStringLiteral("Windows 98");
    case 90:
        return QStringLiteral("Windows Millennium Edition");
    default:
        return {};
    }
}

QString windows5Name(const OsVersionInfoEx& info)
{
    const int suite = info.wSuiteMask;
    switch (info.dwMinorVersion) {
    case 0:
        return suite == 2     ? QStringLiteral("Windows 2000 Advanced")
               : suite == 128 ? QStringLiteral("Windows 2000 Data center")
                              : QStringLiteral("Windows 2000");
    case 1:
        return suite == 0     ? QStringLiteral("Windows XP Professional")
               : suite == 512 ? QStringLiteral("Windows XP Home")
                              : QStringLiteral("Windows XP");
    case 2:
        return suite == 0      ? QStringLiteral("Windows Server 2003 Standard")
               : suite == 2    ? QStringLiteral("Windows Server 2003 Enterprise")
               : suite == 128  ? QStringLiteral("Windows Server 2003 Data center")
               : suite == 274  ? QStringLiteral("Windows Server 2003 R2 Enterprise")
               : suite == 1024 ? QStringLiteral("Windows Server 2003 Web Edition")
                               : QStringLiteral("Windows Server 2003");
    default:
        return {};
    }
}

QString windows6Name(const OsVersionInfoEx& info)
{
    const QString kind = edition(info.wProductType);
    const bool server = info.wProductType == serverProduct;
    switch (info.dwMinorVersion) {
    case 0:
        return (server ? QStringLiteral("Windows Server 2008 ") : QStringLiteral("Windows Vista ")) + kind;
    case 1:
        // "R2" and the edition touch: no blank between them.
        return (server ? QStringLiteral("Windows Server 2008 R2") : QStringLiteral("Windows 7 ")) + kind;
    case 2:
        return (server ? QStringLiteral("Windows Server 2012 ") : QStringLiteral("Windows 8 ")) + kind;
    case 3:
        return QStringLiteral("Windows 8.1 ") + kind;
    case 4:
        return QStringLiteral("Windows 10 ") + kind;
    default:
        return QStringLiteral("未知系统 ") + kind;
    }
}

QString windowsNtName(const OsVersionInfoEx& info)
{
    switch (info.dwMajorVersion) {
    case 3:
        return QStringLiteral("Windows NT 3.51");
    case 4:
        return QStringLiteral("Windows NT 4.0");
    case 5:
        return windows5Name(info);
    case 6:
        return windows6Name(info);
    default:
        return {};
    }
}

} // namespace

std::optional<QString> nameFromProductVersion(const QString& productVersionText)
{
    const QStringList words = textrules::split(productVersionText, QStringLiteral("."));
    if (words.size() < 4)
        return std::nullopt;
    const qint32 major = textrules::toWhole(words[0]).value_or(0);
    const qint32 minor = textrules::toWhole(words[1]).value_or(0);
    if (major > 6)
        return QStringLiteral("Windows ") + productVersionText;
    if (major == 6 && minor >= 3)
        return QStringLiteral("Windows 8.1 [") + productVersionText + QLatin1Char(']');
    return std::nullopt;
}

QString nameFromVersionInfo(const OsVersionInfoEx& info)
{
    QString name;
    switch (info.dwPlatformId) {
    case 0:
        name = QStringLiteral("DOS");
        break;
    case 1:
        name = windows9xName(info);
        break;
    case 2:
        name = windowsNtName(info);
        break;
    default:
        name = QStringLiteral("Unknown System Version!");
        break;
    }

    if (info.dwPlatformId == 2 && (info.dwMajorVersion == 5 || info.dwMajorVersion == 6)
        && info.wServicePackMajor >= 1) {
        name += QStringLiteral(" Service Pack ") + textrules::decimal(info.wServicePackMajor);
        if (info.wServicePackMinor >= 1)
            name += QLatin1Char('.') + textrules::decimal(info.wServicePackMinor);
    }
    return name + QStringLiteral(" [Version: ") + textrules::decimal(info.dwMajorVersion) + QLatin1Char('.')
           + textrules::decimal(info.dwMinorVersion) + QLatin1Char('.') + textrules::decimal(info.dwBuildNumber)
           + QLatin1Char(']');
}

QString GetOSName(const WindowsVersionFacts& facts, MessageService& messages)
{
    if (facts.kernelExists) {
        getfileinfo::FileVersionFields fields;
        getfileinfo::GetFileVersionFields(facts.kernelVersion, fields, messages);
        if (std::optional<QString> name = nameFromProductVersion(fields.ProductVersionText))
            return *name;
    }
    return nameFromVersionInfo(facts.versionInfo);
}

QString GetOSName()
{
    return QSysInfo::prettyProductName();
}

QString addressWidthOf(const QString& cpuArchitecture)
{
    static const QStringList wide{"x86_64", "arm64", "ia64", "mips64", "power64", "riscv64", "s390x", "sparcv9",
                                  "loongarch64"};
    return wide.contains(cpuArchitecture) ? QStringLiteral("64") : QStringLiteral("32");
}

QString addressWidth()
{
    return addressWidthOf(QSysInfo::currentCpuArchitecture());
}

} // namespace osname
