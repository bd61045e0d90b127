#include "online/pagebrowser.h"

#include "online/pagetext.h"
#include "online/xmlhttprequest.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

QNetworkRequest browserRequest(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QByteArrayLiteral("Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 (KHTML, "
                                        "like Gecko) Chrome/120.0.0.0 Safari/537.36"));
    request.setRawHeader("Accept", "text/html,application/xhtml+xml,application/xml;q=0.9,*/*;q=0.8");
    request.setRawHeader("Accept-Language", "zh-CN,zh;q=0.9");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(20);
    return request;
}

namespace {

// The page a browser shows in place of one it could not fetch.
QString errorPage(const QString& reason)
{
    return QStringLiteral("<html><head><title>无法显示此页</title></head><body><h3>无法显示此页</h3><p>")
           + reason.toHtmlEscaped() + QStringLiteral("</p></body></html>");
}

} // namespace

PageBrowser::PageBrowser(QObject* parent) : QObject(parent) {}

PageBrowser::~PageBrowser()
{
    dropNavigation();
}

QString PageBrowser::LocationURL() const
{
    return m_document ? m_document->url().toString() : QString();
}

void PageBrowser::dropNavigation()
{
    ++m_navigation;
    abandonReply(m_reply, this);
}

void PageBrowser::Navigate(const QString& url)
{
    dropNavigation();
    const int navigation = m_navigation;
    if (url.compare(QLatin1String("about:blank"), Qt::CaseInsensitive) == 0) {
        QTimer::singleShot(0, this, [this, navigation, url] {
            if (navigation == m_navigation)
                arrive(url, QString(), QUrl(url));
        });
        return;
    }
    QNetworkReply* reply = m_network.get(browserRequest(QUrl(url)));
    m_reply = reply;
    connect(reply, &QNetworkReply::finished, this, [this, reply, url] {
        m_reply = nullptr;
        reply->deleteLater();
        const QByteArray contentType = reply->header(QNetworkRequest::ContentTypeHeader).toByteArray();
        const QString html = isConnectionFailure(reply->error()) ? errorPage(reply->errorString())
                                                                 : pagetext::decodePage(reply->readAll(), contentType);
        // The address after the redirects is the one showing; a page that
        // could not be fetched keeps the address asked for.
        arrive(url, html, isConnectionFailure(reply->error()) ? QUrl(url) : reply->url());
    });
}

void PageBrowser::arrive(const QString& requested, const QString& html, const QUrl& location)
{
    m_document = std::make_unique<HtmlDocument>(html, location);
    if (m_document->isRefused()) {
        const QString reason = QStringLiteral("此页过大或嵌套过深，无法读取。");
        m_document = std::make_unique<HtmlDocument>(errorPage(reason), location);
    }
    emit NavigateComplete2(this, requested);
    emit DocumentComplete(this, requested);
}
