#pragma once

// getfileinfo: a file's version resource as text fields. The fixed part of the
// resource comes in as a plain record of the numbers the system reports, so
// that the text rules below stand apart from reading the file.

#include <QString>

#include <optional>

class MessageService;

namespace getfileinfo {

// The fixed part of a version resource, as the system hands it over: each
// version is two 32-bit parts of two 16-bit words each.
struct FixedFileInfo {
    quint32 dwStrucVersion = 0;
    quint32 dwFileVersionMS = 0;
    quint32 dwFileVersionLS = 0;
    quint32 dwProductVersionMS = 0;
    quint32 dwProductVersionLS = 0;
    quint32 dwFileFlags = 0;
    quint32 dwFileOS = 0;
    quint32 dwFileType = 0;
    quint32 dwFileSubtype = 0;
};

// The text fields of the last file read. Every version word prints as a
// signed 16-bit number, so a word of 32768 or more reads negative.
struct FileVersionFields {
    QString StrucVersionText;
    QString FileVersionText;
    QString ProductVersionText;
    QString FileFlagsText;
    QString FileOSText;
    QString FileTypeText;
    QString FileSubtypeText;
};

// Sets `fields` from the resource. Without a resource (a file that has none)
// it says "No Version Info available!" with no icon, and the fields keep what
// they held.
void GetFileVersionFields(const std::optional<FixedFileInfo>& resource, FileVersionFields& fields,
                          MessageService& messages);

} // namespace getfileinfo
