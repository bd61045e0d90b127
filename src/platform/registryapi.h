#pragma once

// The calls of the Windows registry that Module_REG makes, as a seam. The
// program reads and writes 32-bit values only, so the value calls carry
// those (type 4, four bytes). Results are the system's error numbers: 0 for
// success. On Linux an in-memory registry stands behind it (MemoryRegistry).

#include <QString>

using RegHandle = quint32;

// The predefined hive handles, by their Windows values.
namespace reghive {
inline constexpr RegHandle HKEY_CLASSES_ROOT = 0x80000000u;
inline constexpr RegHandle HKEY_CURRENT_USER = 0x80000001u;
inline constexpr RegHandle HKEY_LOCAL_MACHINE = 0x80000002u;
inline constexpr RegHandle HKEY_USERS = 0x80000003u;
inline constexpr RegHandle HKEY_PERFORMANCE_DATA = 0x80000004u;
inline constexpr RegHandle HKEY_CURRENT_CONFIG = 0x80000005u;
inline constexpr RegHandle HKEY_DYN_DATA = 0x80000006u;
} // namespace reghive

// The system's error numbers that the registry gives.
namespace regresult {
inline constexpr qint32 success = 0;
inline constexpr qint32 fileNotFound = 2;
inline constexpr qint32 accessDenied = 5;
inline constexpr qint32 invalidHandle = 6;
} // namespace regresult

// Access masks of RegOpenKeyExA.
inline constexpr quint32 KEY_READ = 131097;

class RegistryApi {
public:
    virtual ~RegistryApi() = default;
    // Opens the key, creating it (and the keys above it) when it is missing.
    virtual qint32 RegCreateKeyA(RegHandle hive, const QString& subkey, RegHandle& key) = 0;
    virtual qint32 RegOpenKeyExA(RegHandle hive, const QString& subkey, quint32 access, RegHandle& key) = 0;
    // Opens the key with the access the user has.
    virtual qint32 RegOpenKeyA(RegHandle hive, const QString& subkey, RegHandle& key) = 0;
    virtual qint32 RegQueryValueExA(RegHandle key, const QString& name, qint32& data) = 0;
    virtual qint32 RegSetValueExA(RegHandle key, const QString& name, qint32 data) = 0;
    virtual qint32 RegDeleteValueA(RegHandle key, const QString& name) = 0;
    virtual qint32 RegCloseKey(RegHandle key) = 0;
};
