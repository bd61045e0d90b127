#include "platform/modulereg.h"

#include <utility>

RegHandle Module_REG::RegHiveFromName(const QString& name)
{
    static const std::pair<const char*, RegHandle> hives[] = {
        {"HKEY_CLASSES_ROOT", reghive::HKEY_CLASSES_ROOT},
        {"HKEY_CURRENT_USER", reghive::HKEY_CURRENT_USER},
        {"HKEY_LOCAL_MACHINE", reghive::HKEY_LOCAL_MACHINE},
        {"HKEY_USERS", reghive::HKEY_USERS},
        {"HKEY_PERFORMANCE_DATA", reghive::HKEY_PERFORMANCE_DATA},
        {"HKEY_CURRENT_CONFIG", reghive::HKEY_CURRENT_CONFIG},
        {"HKEY_DYN_DATA", reghive::HKEY_DYN_DATA},
    };
    for (const auto& [hiveName, handle] : hives)
        if (name == QLatin1String(hiveName))
            return handle;
    return 0;
}

void Module_REG::RegParseKey(QString& path, RegHandle& hive)
{
    LastRegResult = qint32(path.indexOf(QLatin1Char('\\')) + 1);
    if (!path.startsWith(QLatin1String("HKEY_")) || path.endsWith(QLatin1Char('\\')))
        return;
    if (LastRegResult != 0) {
        hive = RegHiveFromName(path.left(LastRegResult - 1));
        path = path.mid(LastRegResult);
    } else {
        hive = RegHiveFromName(path);
        path.clear();
    }
}

bool Module_REG::RegWriteDword(QString& path, const QString& name, qint32 value)
{
    RegParseKey(path, CurrentHive);
    if (CurrentHive == 0)
        return false;
    RegHandle key = 0;
    LastRegResult = m_registry.RegCreateKeyA(CurrentHive, path, key);
    if (LastRegResult != regresult::success)
        return false;
    LastRegResult = m_registry.RegSetValueExA(key, name, value);
    const bool written = LastRegResult == regresult::success;
    LastRegResult = m_registry.RegCloseKey(key);
    return written;
}

RegReadResult Module_REG::RegReadDword(QString& path, const QString& name)
{
    RegParseKey(path, CurrentHive);
    if (CurrentHive == 0)
        return std::monostate();
    LastRegResult = m_registry.RegOpenKeyExA(CurrentHive, path, KEY_READ, m_openKey);
    if (LastRegResult != regresult::success)
        return QString();
    LastRegResult = m_registry.RegQueryValueExA(m_openKey, name, m_data);
    if (LastRegResult != regresult::success)
        return QString(); // the key stays open: only a read that succeeds closes it
    LastRegResult = m_registry.RegCloseKey(m_openKey);
    return m_data;
}

void Module_REG::RegDeleteValue(RegHandle hive, const QString& subkey, const QString& name)
{
    RegHandle key = 0;
    LastRegResult = m_registry.RegOpenKeyA(hive, subkey, key);
    LastRegResult = m_registry.RegDeleteValueA(key, name);
    LastRegResult = m_registry.RegCloseKey(key);
}
