#pragma once

// Module_REG: 32-bit values in the registry under keys given as one full text
// path, such as "HKEY_LOCAL_MACHINE\SOFTWARE\Example". It splits the path into
// a hive and a subkey and makes the registry calls. No routine reports a
// failure: it shows only in the results.
//
// Every key path argument comes back as the subkey alone; a caller that needs
// the full path again hands in a fresh copy.

#include "platform/registryapi.h"

#include <QString>

#include <variant>

// What a read gives: nothing (an unknown hive), an empty text (the key or
// the value could not be read) or the value.
using RegReadResult = std::variant<std::monostate, QString, qint32>;

class Module_REG {
public:
    explicit Module_REG(RegistryApi& registry) : m_registry(registry) {}

    // The predefined handle of a hive's name, exact case; 0 for any other name.
    static RegHandle RegHiveFromName(const QString& name);

    // Splits `path` into `hive` and the subkey, which `path` becomes. A path
    // that doesn't begin with "HKEY_" or ends in "\" is refused: both
    // arguments stay as they were.
    void RegParseKey(QString& path, RegHandle& hive);

    // True when written; creates the key when it is missing.
    bool RegWriteDword(QString& path, const QString& name, qint32 value);
    RegReadResult RegReadDword(QString& path, const QString& name);
    // Opens, deletes and closes, testing no result.
    void RegDeleteValue(RegHandle hive, const QString& subkey, const QString& name);

    // The module's state, shared by its routines. CurrentHive keeps its value
    // when a path is refused: a write or read with such a path goes to the
    // hive of the call before. LastRegResult is the result of the last
    // registry call, and holds the position of the first "\" while a path is
    // parsed.
    RegHandle CurrentHive = 0;
    qint32 LastRegResult = 0;

private:
    RegistryApi& m_registry;
    RegHandle m_openKey = 0; // the key that RegReadDword opened
    qint32 m_data = 0;       // RegReadDword's buffer
};
