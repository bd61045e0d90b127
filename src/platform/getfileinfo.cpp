#include "platform/getfileinfo.h"

#include "platform/services.h"

#include <utility>

namespace getfileinfo {

namespace {

QString word(quint32 value)
{
    return QString::number(qint16(quint16(value)));
}

// High word, ".", low word.
QString wordPair(quint32 part)
{
    return word(part >> 16) + QLatin1Char('.') + word(part);
}

QString versionText(quint32 mostSignificant, quint32 leastSignificant)
{
    return wordPair(mostSignificant) + QLatin1Char('.') + wordPair(leastSignificant);
}

// The name of `value` in `table`, or nothing.
template <size_t N>
std::optional<QString> nameOf(quint32 value, const std::pair<quint32, const char*> (&table)[N])
{
    for (const auto& [key, name] : table)
        if (key == value)
            return QString::fromUtf8(name);
    return std::nullopt;
}

constexpr std::pair<quint32, const char*> flagNames[] = {
    {1, "Debug "}, {2, "PreRel "}, {4, "Patched "}, {8, "Private "}, {16, "Info "}, {32, "Special "},
};

constexpr std::pair<quint32, const char*> osNames[] = {
    {65537, "DOS-Win16"}, {65540, "DOS-Win32"}, {131074, "OS/2-16 PM-16"},
    {196611, "OS/2-16 PM-32"}, {262148, "NT-Win32"},
};

constexpr std::pair<quint32, const char*> typeNames[] = {
    {1, "App"}, {2, "DLL"}, {3, "Driver"}, {4, "Font"}, {5, "VxD"}, {7, "Lib"},
};

constexpr std::pair<quint32, const char*> driverSubtypes[] = {
    {0, "Unknown"}, {1, "Printer drv"}, {2, "Keyboard drv"}, {3, "Language drv"},
    {4, "Display drv"}, {5, "Mouse drv"}, {6, "Network drv"}, {7, "System drv"},
    {8, "Installable"}, {9, "Sound drv"}, {10, "Comm drv"},
};

constexpr std::pair<quint32, const char*> fontSubtypes[] = {
    {1, "Raster Font"}, {2, "Vector Font"}, {3, "TrueType Font"},
};

} // namespace

void GetFileVersionFields(const std::optional<FixedFileInfo>& resource, FileVersionFields& fields,
                          MessageService& messages)
{
    if (!resource) {
        messages.show(MessageIcon::None, QStringLiteral("No Version Info available!"));
        return;
    }
    const FixedFileInfo& info = *resource;
    fields.StrucVersionText = wordPair(info.dwStrucVersion);
    fields.FileVersionText = versionText(info.dwFileVersionMS, info.dwFileVersionLS);
    fields.ProductVersionText = versionText(info.dwProductVersionMS, info.dwProductVersionLS);

    fields.FileFlagsText.clear();
    for (const auto& [bit, name] : flagNames)
        if (info.dwFileFlags & bit)
            fields.FileFlagsText += QString::fromUtf8(name);

    fields.FileOSText = nameOf(info.dwFileOS, osNames).value_or(QStringLiteral("Unknown"));
    fields.FileTypeText = nameOf(info.dwFileType, typeNames).value_or(QStringLiteral("Unknown"));

    // Only drivers and fonts name a subtype; any other keeps the one before.
    std::optional<QString> subtype;
    if (fields.FileTypeText == QLatin1String("Driver"))
        subtype = nameOf(info.dwFileSubtype, driverSubtypes);
    else if (fields.FileTypeText == QLatin1String("Font"))
        subtype = nameOf(info.dwFileSubtype, fontSubtypes);
    if (subtype)
        fields.FileSubtypeText = *subtype;
}

} // namespace getfileinfo
