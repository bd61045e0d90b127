#pragma once

// The one line that names the operating system, shown in the information
// windows and copied from there. Nothing reads it back.
//
// On Windows the name comes from two readings: the product version of the
// system's "kernel32.dll", then, where that doesn't settle it, the version
// record the system reports. Both are plain records here, so that the naming
// rules stand apart from the calls that fill them.

#include "platform/getfileinfo.h"

#include <QString>

#include <optional>

class MessageService;

namespace osname {

// The extended version record of the system (OSVERSIONINFOEX), with the
// field types the program declares for it.
struct OsVersionInfoEx {
    qint32 dwMajorVersion = 0;
    qint32 dwMinorVersion = 0;
    qint32 dwBuildNumber = 0;
    qint32 dwPlatformId = 0;
    QString szCSDVersion{};
    qint16 wServicePackMajor = 0;
    qint16 wServicePackMinor = 0;
    qint16 wSuiteMask = 0;
    quint8 wProductType = 0;
};

// What a Windows system tells of its version.
struct WindowsVersionFacts {
    bool kernelExists = false;                                     // "kernel32.dll" in the system folder
    std::optional<getfileinfo::FixedFileInfo> kernelVersion;       // nothing: the file has no version resource
    OsVersionInfoEx versionInfo;
};

// First reading: the name from the product version text of "kernel32.dll",
// or nothing when the second reading must give it.
std::optional<QString> nameFromProductVersion(const QString& productVersionText);

// Second reading: the name from the version record, with the service pack
// and the version number behind it.
QString nameFromVersionInfo(const OsVersionInfoEx& info);

// The name of a Windows system from its facts. A kernel file without a
// version resource shows the message of GetFileVersionFields first.
QString GetOSName(const WindowsVersionFacts& facts, MessageService& messages);

// The name of the system the program runs on: on Linux the distribution's own
// name and version, as its os-release file gives them.
QString GetOSName();

// The processor's address width in bits, as text, from the architecture name
// Qt gives ("x86_64", "i386", "arm64", ...): "32" when it can't be told.
QString addressWidthOf(const QString& cpuArchitecture);
QString addressWidth();

} // namespace osname
