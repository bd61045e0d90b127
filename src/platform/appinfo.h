#pragma once

// What the program says of itself: its title, its version and the name of its
// executable. The settings store, every message box and the captions use them.

#include <QString>

namespace appinfo {

inline QString title()
{
    return QStringLiteral("澄川号码分析台");
}

inline constexpr int major = 2;
inline constexpr int minor = 4;
inline constexpr int revision = 303;

// The executable's name without extension.
inline QString exeName()
{
    return QStringLiteral("chengchuan");
}

} // namespace appinfo
