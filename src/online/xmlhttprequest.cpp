#include "online/xmlhttprequest.h"

#include "online/pagetext.h"

#include <QUrl>

bool isConnectionFailure(QNetworkReply::NetworkError error)
{
    return error != QNetworkReply::NoError && error < QNetworkReply::ContentAccessDenied;
}

void abandonReply(QPointer<QNetworkReply>& reply, QObject* receiver)
{
    if (QNetworkReply* going = reply) {
        reply = nullptr;
        going->disconnect(receiver);
        going->abort();
        going->deleteLater();
    }
}

XmlHttpRequest::XmlHttpRequest(QObject* parent) : QObject(parent) {}

XmlHttpRequest::~XmlHttpRequest()
{
    abandonReply(m_reply, this);
}

void XmlHttpRequest::Open(const QString& method, const QString& url)
{
    abandonReply(m_reply, this);
    m_request = QNetworkRequest(QUrl(url));
    m_request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    m_method = method.toLatin1();
    m_answered = false;
    m_status = 0;
    m_statusText.clear();
    m_headers.clear();
    m_body.clear();
    m_readyState = 1;
}

void XmlHttpRequest::SetRequestHeader(const QString& header, const QString& value)
{
    if (m_readyState == 1 && !m_reply)
        m_request.setRawHeader(header.toLatin1(), value.toUtf8());
}

void XmlHttpRequest::send(const QString& body)
{
    if (m_readyState != 1 || m_reply)
        return; // not opened, or sent already
    QNetworkReply* reply = body.isEmpty()
                               ? m_network.sendCustomRequest(m_request, m_method)
                               : m_network.sendCustomRequest(m_request, m_method, body.toUtf8());
    m_reply = reply;
    connect(reply, &QNetworkReply::metaDataChanged, this, [this] { readHead(); });
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        m_body += reply->readAll();
        m_readyState = 3;
    });
    connect(reply, &QNetworkReply::finished, this, [this] { finish(); });
}

void XmlHttpRequest::abort()
{
    abandonReply(m_reply, this);
    m_answered = false;
    m_status = 0;
    m_readyState = 0;
}

void XmlHttpRequest::readHead()
{
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid())
        return;
    m_answered = true;
    m_status = status.toInt();
    m_statusText = m_reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString();
    m_headers = m_reply->rawHeaderPairs();
    m_readyState = std::max(m_readyState, 2);
}

void XmlHttpRequest::finish()
{
    QNetworkReply* reply = m_reply;
    readHead(); // a redirect ends on the last answer's head
    m_body += reply->readAll();
    if (isConnectionFailure(reply->error())) {
        m_answered = false;
        m_status = 0;
        m_statusText.clear();
    }
    m_readyState = 4;
    m_reply = nullptr;
    reply->deleteLater();
}

int XmlHttpRequest::Status() const
{
    return m_answered ? m_status : 0;
}

QString XmlHttpRequest::StatusText() const
{
    return m_answered ? m_statusText : QString();
}

QString XmlHttpRequest::GetResponseHeader(const QString& header) const
{
    QStringList values;
    for (const QNetworkReply::RawHeaderPair& pair : m_headers) {
        if (QString::fromLatin1(pair.first).compare(header, Qt::CaseInsensitive) == 0)
            values.append(QString::fromLatin1(pair.second));
    }
    return values.join(QStringLiteral(", "));
}

QString XmlHttpRequest::GetAllResponseHeaders() const
{
    QString all;
    for (const QNetworkReply::RawHeaderPair& pair : m_headers)
        all += QString::fromLatin1(pair.first) + QStringLiteral(": ") + QString::fromLatin1(pair.second)
               + QStringLiteral("\r\n");
    return all;
}

QByteArray XmlHttpRequest::ResponseBody() const
{
    return m_readyState == 4 ? m_body : QByteArray();
}

QString XmlHttpRequest::ResponseText() const
{
    if (m_readyState != 4)
        return {};
    return pagetext::decodeText(m_body, GetResponseHeader(QStringLiteral("Content-Type")).toLatin1());
}
