#include "online/uxmlhttp.h"

#include "online/xmlhttprequest.h"
#include "platform/runtimefailure.h"

#include <QFile>
#include <QTimer>

#include <limits>
#include <optional>

namespace {

// The status as a signed 16-bit number; nothing when it does not fit.
std::optional<qint16> narrowTo16Bits(qint32 status)
{
    if (status < std::numeric_limits<qint16>::min() || status > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return qint16(status);
}

} // namespace

uXMLHTTP::uXMLHTTP(QObject* parent)
    : QObject(parent), tmrReader(new QTimer(this)), m_request(new XmlHttpRequest(this))
{
    tmrReader->setObjectName(QStringLiteral("tmrReader"));
    tmrReader->setInterval(10);
    connect(tmrReader, &QTimer::timeout, this, [this] { tmrReader_Timer(); });
    FillStatusTexts(m_statusTexts);
}

uXMLHTTP::~uXMLHTTP()
{
    tmrReader->stop();
}

void uXMLHTTP::Open_(const QString& AMethod, const QString& AUrl, const QString& 保存路径)
{
    m_downOK = false;
    m_request->Open(AMethod.toUpper(), AUrl);
    m_pollAfterSend = true;
    this->保存路径 = 保存路径;
}

void uXMLHTTP::SetRequestHeader(const QString& AHeader, const QString& AValue)
{
    m_request->SetRequestHeader(AHeader, AValue);
}

void uXMLHTTP::Send_(const QString& ABody)
{
    m_request->send(ABody);
    // The timer's enabled state becomes PollAfterSend: without an Open_ it stays off.
    if (m_pollAfterSend)
        tmrReader->start();
    else
        tmrReader->stop();
}

void uXMLHTTP::Abort_()
{
    tmrReader->stop();
    m_request->abort();
}

qint32 uXMLHTTP::ReadyState() const
{
    return m_request->ReadyState();
}

qint32 uXMLHTTP::Status() const
{
    return m_request->Status();
}

QString uXMLHTTP::StatusText() const
{
    return m_request->StatusText();
}

QString uXMLHTTP::GetResponseHeader(const QString& AHeader) const
{
    return m_request->GetResponseHeader(AHeader);
}

QString uXMLHTTP::GetAllResponseHeaders() const
{
    return m_request->GetAllResponseHeaders();
}

QByteArray uXMLHTTP::ResponseBody() const
{
    return m_request->ResponseBody();
}

QString uXMLHTTP::ResponseText() const
{
    return m_request->ResponseText();
}

void uXMLHTTP::tmrReader_Timer()
{
    emit OnReadyStateChange(); // at every tick, changed or not
    if (ReadyState() != 4)
        return;
    tmrReader->stop();
    m_downOK = true; // the request has ended; whether it succeeded comes next
    if (Status() == 200) {
        const QByteArray body = ResponseBody();
        if (!保存路径.isEmpty() && !body.isEmpty())
            saveResponse(body);
        try {
            emit OnDateArrived();
        } catch (const RuntimeError&) {
            // A failure in the host's handler ends that handler only, here
            // at the tick's last statement.
        }
        return;
    }
    const std::optional<qint16> status = narrowTo16Bits(Status());
    if (status && *status >= 0 && *status <= 600) {
        try {
            emit OnDateErr(m_statusTexts[size_t(*status)]);
        } catch (const RuntimeError&) {
            // As above: the handler ends, the tick has nothing left to do.
        }
    }
}

void uXMLHTTP::saveResponse(const QByteArray& body) const
{
    // The old file goes first. A file that can't be written is not reported:
    // OnDateArrived comes all the same.
    if (QFile::exists(保存路径))
        QFile::remove(保存路径);
    QFile file(保存路径);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(body);
}
