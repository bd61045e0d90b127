#pragma once

// A registry held in memory, with the behaviour of the Windows one that the
// program meets: key paths and value names compare without regard to case, a
// hive may refuse writing (a user without rights on the machine-wide hive),
// and handles stay open until they are closed.

#include "platform/registryapi.h"

#include <QHash>
#include <QMap>
#include <QSet>

#include <optional>

class MemoryRegistry : public RegistryApi {
public:
    qint32 RegCreateKeyA(RegHandle hive, const QString& subkey, RegHandle& key) override;
    qint32 RegOpenKeyExA(RegHandle hive, const QString& subkey, quint32 access, RegHandle& key) override;
    qint32 RegOpenKeyA(RegHandle hive, const QString& subkey, RegHandle& key) override;
    qint32 RegQueryValueExA(RegHandle key, const QString& name, qint32& data) override;
    qint32 RegSetValueExA(RegHandle key, const QString& name, qint32 data) override;
    qint32 RegDeleteValueA(RegHandle key, const QString& name) override;
    qint32 RegCloseKey(RegHandle key) override;

    // Direct access to what is stored, for setting up and looking.
    void setValue(RegHandle hive, const QString& subkey, const QString& name, qint32 value);
    std::optional<qint32> value(RegHandle hive, const QString& subkey, const QString& name) const;

    // Hives in which creating keys and changing values is refused.
    QSet<RegHandle> readOnlyHives;
    int openHandles() const { return int(m_open.size()); }
    int valuesSet = 0; // values written through RegSetValueExA

private:
    struct OpenKey {
        QString path;
        bool writable;
    };
    static QString keyPath(RegHandle hive, const QString& subkey);
    static bool isHive(RegHandle hive);
    // Creates the key and the keys above it; gives its path.
    QString createKeys(RegHandle hive, const QString& subkey);
    qint32 open(RegHandle hive, const QString& subkey, bool writable, RegHandle& key);

    QSet<QString> m_keys;                       // full paths, folded to lower case
    QHash<QString, QMap<QString, qint32>> m_values; // by key path, then folded value name
    QHash<RegHandle, OpenKey> m_open;
    RegHandle m_nextHandle = 0x100;
};
