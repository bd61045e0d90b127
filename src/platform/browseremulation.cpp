#include "platform/browseremulation.h"

#include "platform/appinfo.h"
#include "platform/modulereg.h"

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

// The stored value, read as a 16-bit integer: a read that gave no number
// counts as 0. A number beyond 16 bits would count as 0 as well; as every
// wanted value fits in 16 bits, it differs from the wanted one either way, so
// the number is taken as it stands.
qint32 currentValue(const RegReadResult& read)
{
    const qint32* value = std::get_if<qint32>(&read);
    return value ? *value : 0;
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
