#include "settings/settingsstore.h"

#include <QDir>
#include <QSettings>

namespace {

QString entry(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

} // namespace

IniSettingsStore::IniSettingsStore(const QString& folder, const QString& application)
    : m_settings(new QSettings(QDir(folder).filePath(application + QStringLiteral(".ini")),
                               QSettings::IniFormat))
{
}

IniSettingsStore::~IniSettingsStore()
{
    delete m_settings;
}

QString IniSettingsStore::read(const QString& section, const QString& key, const QString& fallback) const
{
    const QVariant value = m_settings->value(entry(section, key));
    return value.isValid() ? value.toString() : fallback;
}

void IniSettingsStore::write(const QString& section, const QString& key, const QString& value)
{
    m_settings->setValue(entry(section, key), value);
    m_settings->sync();
}

QString IniSettingsStore::filePath() const
{
    return m_settings->fileName();
}
