#pragma once

// The per-user settings store: text values addressed by application, section
// and key. The application is always the program's title.

#include <QString>

class QSettings;

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    // The stored text, or `fallback` when the store or the key is missing.
    virtual QString read(const QString& section, const QString& key, const QString& fallback) const = 0;
    virtual void write(const QString& section, const QString& key, const QString& value) = 0;
};

// The store as an INI file named after the application, in a folder the
// program is given (the user's configuration folder when it runs for real).
// Each write reaches the disk at once: the process may end without warning.
// Section and key names stand in the file as UTF-8 text, so that a person
// can read and edit it; a file whose names are Qt's escapes ("%U8BBE")
// reads all the same.
class IniSettingsStore final : public SettingsStore {
public:
    IniSettingsStore(const QString& folder, const QString& application);
    ~IniSettingsStore() override;

    QString read(const QString& section, const QString& key, const QString& fallback) const override;
    void write(const QString& section, const QString& key, const QString& value) override;

    QString filePath() const;

private:
    void writeNamesAsText();

    QSettings* m_settings;
};
