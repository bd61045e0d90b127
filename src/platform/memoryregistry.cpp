#include "platform/memoryregistry.h"

#include <QStringList>

namespace {

// Write access bits of a key's access mask: set value, create subkey,
// delete, write DAC, write owner.
constexpr quint32 writeAccess = 0x0002 | 0x0004 | 0x00010000 | 0x00040000 | 0x00080000;

} // namespace

bool MemoryRegistry::isHive(RegHandle hive)
{
    return hive >= reghive::HKEY_CLASSES_ROOT && hive <= reghive::HKEY_DYN_DATA;
}

QString MemoryRegistry::keyPath(RegHandle hive, const QString& subkey)
{
    QString path = QString::number(hive, 16);
    for (const QString& part : subkey.split(QLatin1Char('\\'), Qt::SkipEmptyParts))
        path += QLatin1Char('\\') + part.toLower();
    return path;
}

QString MemoryRegistry::createKeys(RegHandle hive, const QString& subkey)
{
    QString path = keyPath(hive, {});
    for (const QString& part : subkey.split(QLatin1Char('\\'), Qt::SkipEmptyParts)) {
        path += QLatin1Char('\\') + part.toLower();
        m_keys.insert(path);
    }
    return path;
}

qint32 MemoryRegistry::open(RegHandle hive, const QString& subkey, bool writable, RegHandle& key)
{
    if (!isHive(hive))
        return regresult::invalidHandle;
    const QString path = keyPath(hive, subkey);
    if (path.contains(QLatin1Char('\\')) && !m_keys.contains(path))
        return regresult::fileNotFound;
    key = m_nextHandle++;
    m_open.insert(key, {path, writable});
    return regresult::success;
}

qint32 MemoryRegistry::RegCreateKeyA(RegHandle hive, const QString& subkey, RegHandle& key)
{
    if (!isHive(hive))
        return regresult::invalidHandle;
    if (readOnlyHives.contains(hive))
        return regresult::accessDenied;
    createKeys(hive, subkey);
    return open(hive, subkey, true, key);
}

qint32 MemoryRegistry::RegOpenKeyExA(RegHandle hive, const QString& subkey, quint32 access, RegHandle& key)
{
    const bool writable = access & writeAccess;
    if (writable && readOnlyHives.contains(hive))
        return regresult::accessDenied;
    return open(hive, subkey, writable, key);
}

qint32 MemoryRegistry::RegOpenKeyA(RegHandle hive, const QString& subkey, RegHandle& key)
{
    return open(hive, subkey, !readOnlyHives.contains(hive), key);
}

qint32 MemoryRegistry::RegQueryValueExA(RegHandle key, const QString& name, qint32& data)
{
    if (!m_open.contains(key))
        return regresult::invalidHandle;
    const QMap<QString, qint32> values = m_values.value(m_open[key].path);
    const auto found = values.constFind(name.toLower());
    if (found == values.cend())
        return regresult::fileNotFound;
    data = *found;
    return regresult::success;
}

qint32 MemoryRegistry::RegSetValueExA(RegHandle key, const QString& name, qint32 data)
{
    if (!m_open.contains(key))
        return regresult::invalidHandle;
    if (!m_open[key].writable)
        return regresult::accessDenied;
    m_values[m_open[key].path].insert(name.toLower(), data);
    ++valuesSet;
    return regresult::success;
}

qint32 MemoryRegistry::RegDeleteValueA(RegHandle key, const QString& name)
{
    if (!m_open.contains(key))
        return regresult::invalidHandle;
    if (!m_open[key].writable)
        return regresult::accessDenied;
    return m_values[m_open[key].path].remove(name.toLower()) ? regresult::success : regresult::fileNotFound;
}

qint32 MemoryRegistry::RegCloseKey(RegHandle key)
{
    return m_open.remove(key) ? regresult::success : regresult::invalidHandle;
}

void MemoryRegistry::setValue(RegHandle hive, const QString& subkey, const QString& name, qint32 value)
{
    m_values[createKeys(hive, subkey)].insert(name.toLower(), value);
}

std::optional<qint32> MemoryRegistry::value(RegHandle hive, const QString& subkey, const QString& name) const
{
    const QMap<QString, qint32> values = m_values.value(keyPath(hive, subkey));
    const auto found = values.constFind(name.toLower());
    if (found == values.cend())
        return std::nullopt;
    return *found;
}
