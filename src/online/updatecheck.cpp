#include "online/updatecheck.h"

#include "online/uxmlhttp.h"
#include "platform/appinfo.h"
#include "platform/runtimefailure.h"
#include "platform/textrules.h"

#include <cmath>
#include <limits>

namespace {

// Single-precision conversion of a numeric text; too large a value overflows.
float toSingle(double value)
{
    if (std::fabs(value) > double(std::numeric_limits<float>::max()))
        throw RuntimeError(RuntimeError::Overflow);
    return float(value);
}

// The sum is formed in double precision and kept in single precision.
float weighed(float major, float minor, float revision)
{
    return toSingle(double(minor) * 10000 + double(major) * 10000000 + double(revision));
}

} // namespace

bool isNewerVersion(const QString& versionText, ProgramVersion running)
{
    const QStringList fields = textrules::split(versionText, QStringLiteral("."));
    if (fields.size() != 3)
        return false;
    for (const QString& field : fields) {
        if (!textrules::isNumeric(field))
            return false;
    }
    const float a = toSingle(*textrules::toNumber(fields[0]));
    const float b = toSingle(*textrules::toNumber(fields[1]));
    const float c = toSingle(*textrules::toNumber(fields[2]));
    const float remote = weighed(a, b, c);
    const float local = weighed(float(running.major), float(running.minor), float(running.revision));
    return remote > local;
}

void OpenBrowserUrl(DesktopLauncher& launcher, const QString& url, bool useOpenWindow)
{
    Q_UNUSED(useOpenWindow)
    launcher.openAddress(url);
}

UpdateCheck::UpdateCheck(uXMLHTTP& uXMLHTTP2, MessageService& messages, DesktopLauncher& launcher,
                         QString vendorBaseUrl, ProgramVersion running, std::function<void()> ended)
    : QObject(&uXMLHTTP2),
      uXMLHTTP2(uXMLHTTP2),
      m_messages(messages),
      m_launcher(launcher),
      m_vendorBaseUrl(std::move(vendorBaseUrl)),
      m_running(running),
      m_ended(std::move(ended))
{
    connect(&uXMLHTTP2, &uXMLHTTP::OnDateArrived, this, [this] { uXMLHTTP2_OnDateArrived(); });
    connect(&uXMLHTTP2, &uXMLHTTP::OnDateErr, this, [this](const QString& txt) { uXMLHTTP2_OnDateErr(txt); });
}

void UpdateCheck::StartUpdateCheck()
{
    VersionText.clear();
    uXMLHTTP2.Open_(QStringLiteral("GET"), m_vendorBaseUrl + appinfo::exeName() + QStringLiteral("/newver.txt"));
    uXMLHTTP2.Send_();
}

void UpdateCheck::uXMLHTTP2_OnDateArrived()
{
    VersionText = textrules::trim(uXMLHTTP2.ResponseText());
    if (!VersionText.isEmpty() && VersionText.size() <= 10)
        CheckNewVersion(VersionText);
    m_ended();
}

void UpdateCheck::uXMLHTTP2_OnDateErr(const QString& txt)
{
    Q_UNUSED(txt) // the status text is neither shown nor kept
    m_messages.show(MessageIcon::Critical, QStringLiteral("请保持网络畅通！"));
    m_ended();
}

void UpdateCheck::CheckNewVersion(const QString& VersionText)
{
    if (isNewerVersion(VersionText, m_running)) {
        m_messages.show(MessageIcon::Information, QStringLiteral("有最新版本：V") + VersionText);
        OpenBrowserUrl(m_launcher, m_vendorBaseUrl + appinfo::exeName() + QStringLiteral("/"), false);
    }
}

UpdateCheckService updateCheckService(MessageService& messages, DesktopLauncher& launcher,
                                      const QString& vendorBaseUrl)
{
    if (vendorBaseUrl.isEmpty())
        return {};
    return [&messages, &launcher, vendorBaseUrl](uXMLHTTP& uXMLHTTP2, std::function<void()> ended) {
        auto* check = new UpdateCheck(uXMLHTTP2, messages, launcher, vendorBaseUrl,
                                      {appinfo::major, appinfo::minor, appinfo::revision}, std::move(ended));
        check->StartUpdateCheck();
    };
}
