#include "settings/settingsstore.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QSaveFile>
#include <QSettings>

#include <optional>

namespace {

QString entry(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

// The code of `count` hexadecimal digits at the start of `digits`.
std::optional<char16_t> hexCode(QStringView digits, qsizetype count)
{
    if (digits.size() < count)
        return std::nullopt;
    char16_t code = 0;
    for (const QChar digit : digits.first(count)) {
        const qsizetype value = QStringView(u"0123456789ABCDEF").indexOf(digit.toUpper());
        if (value < 0)
            return std::nullopt;
        code = char16_t(code * 16 + value);
    }
    return code;
}

// A section or key name as Qt writes it, with each character beyond ASCII
// turned back into that character: "%U8BBE" is 设, "%E9" is é. Escapes of
// ASCII characters stay: a "%3D" that became "=" would change what the line
// says, and Qt never escapes "%" but as "%25".
QString plainName(QStringView name)
{
    QString plain;
    plain.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name[i] == u'%') {
            if (name.mid(i + 1, 1) == u"U") {
                if (const std::optional<char16_t> code = hexCode(name.mid(i + 2), 4)) {
                    plain += QChar(*code);
                    i += 5;
                    continue;
                }
            } else if (const std::optional<char16_t> code = hexCode(name.mid(i + 1), 2); code && *code >= 0x80) {
                plain += QChar(*code);
                i += 2;
                continue;
            }
        }
        plain += name[i];
    }
    return plain;
}

// The file as Qt wrote it, its section and key names as UTF-8 text. A line
// is a section's name in brackets or a key, "=" and a value; Qt escapes an
// "=" within a key, so the first "=" ends the key. Values stay as Qt wrote
// them, in UTF-8 already.
QByteArray withPlainNames(const QByteArray& file)
{
    QList<QByteArray> lines = file.split('\n');
    for (QByteArray& line : lines) {
        if (line.startsWith('[')) {
            line = plainName(QString::fromLatin1(line)).toUtf8();
        } else if (const qsizetype equals = line.indexOf('='); equals > 0) {
            line = plainName(QString::fromLatin1(line.left(equals))).toUtf8() + line.mid(equals);
        }
    }
    return lines.join('\n');
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
    writeNamesAsText();
}

void IniSettingsStore::writeNamesAsText()
{
    // Qt reads names written as UTF-8 text as well as its own escapes, but
    // writes only the escapes, which a person can't read ("[%U8BBE%U7F6EI]"
    // for "[设置I]"). So once Qt has written the file, its names are put back
    // as text. Should this fail, the file as Qt wrote it stays: it reads the same.
    QFile written(m_settings->fileName());
    if (!written.open(QIODevice::ReadOnly))
        return;
    const QByteArray escaped = written.readAll();
    written.close();
    const QByteArray plain = withPlainNames(escaped);
    if (plain == escaped)
        return;
    QSaveFile file(m_settings->fileName());
    if (file.open(QIODevice::WriteOnly) && file.write(plain) == plain.size())
        file.commit();
}

QString IniSettingsStore::filePath() const
{
    return m_settings->fileName();
}
