#include "platform/browseremulation.h"

#include "platform/appinfo.h"
#include "platform/modulereg.h"

#include <limits>

namespace browseremulation {

namespace {

const QString subkey =
    QStringLiteral("SOFTWARE\\Microsoft\\Internet Explorer\\MAIN\\FeatureControl\\FEATURE_BROWSER_EMULATION");

struct Emulation {
    const char* version;
    qint32 normal;
    qint32 forced;
};

// The values the browser itself defines.
constexpr Emulation emulations[] = {
    {"IE10", 10000, 10001},
    {"IE9", 9000, 9999},
    {"IE8", 8000, 8888},
    {"IE7", 7000, 7000},
};

// The stored value as a 16-bit integer; a read that gave no number, or a
// number that doesn't fit, counts as 0.
qint32 currentValue(const RegReadResult& read)
{
    const qint32* value = std::get_if<qint32>(&read);
    if (!value || *value < std::numeric_limits<qint16>::min() || *value > std::numeric_limits<qint16>::max())
        return 0;
    return *value;
}

} // namespace

QString keyPath()
{
    return QStringLiteral("HKEY_LOCAL_MACHINE\\") + subkey;
}

QString valueName()
{
    return appinfo::exeName() + QStringLiteral(".exe");
}

qint32 wantedValue(const QString& version, bool force)
{
    const QString upper = version.toUpper();
    for (const Emulation& emulation : emulations)
        if (upper == QLatin1String(emulation.version))
            return force ? emulation.forced : emulation.normal;
    return 0;
}

} // namespace browseremulation

void SetBrowserEmulation(Module_REG& registry, const QString& version, bool force)
{
    using namespace browseremulation;
    const qint32 wanted = wantedValue(version, force);
    if (wanted == 0)
        registry.RegDeleteValue(reghive::HKEY_LOCAL_MACHINE, subkey, valueName());

    QString readPath = keyPath(); // the read hands it back as the subkey
    const qint32 current = currentValue(registry.RegReadDword(readPath, valueName()));
    if (wanted >= 1 && wanted != current) {
        QString writePath = keyPath();
        registry.RegWriteDword(writePath, valueName(), wanted);
    }
}
