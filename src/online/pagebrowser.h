#pragma once

// The browser under the online import, without a screen of its own: it
// fetches a page the way a desktop browser asks for it, decodes it by its
// declared charset, parses it into an HtmlDocument and raises the events
// that a browser raises for a finished navigation, NavigateComplete2 and
// then DocumentComplete, for its one frame. A navigation that fails still
// completes, on a page that says so, as a browser shows its error page, and
// so does one whose page the document refuses (too large, or nested too
// deep, to parse in good time); a new navigation drops the one under way. The document stays the old one until
// the new page has come, so a page that never comes leaves the last one
// showing. No script runs in these pages: nothing in them can open a window
// or close one.

#include "online/htmldocument.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class QNetworkReply;

// What a desktop browser sends with a page request; some sites refuse
// clients that do not look like one.
QNetworkRequest browserRequest(const QUrl& url);

class PageBrowser : public QObject {
    Q_OBJECT

public:
    explicit PageBrowser(QObject* parent = nullptr);
    ~PageBrowser() override;

    // Starts loading and returns at once; "about:blank" is an empty page.
    void Navigate(const QString& url);
    // Script errors would raise no dialog; no script runs here anyway.
    bool Silent = false;
    // The address of the document now showing, after any redirects.
    QString LocationURL() const;
    // The document now showing; none before the first page has come.
    HtmlDocument* Document() const { return m_document.get(); }

signals:
    // `frame` is the frame whose navigation completed; this browser's pages
    // have one, the browser itself.
    void NavigateComplete2(PageBrowser* frame, const QString& url);
    void DocumentComplete(PageBrowser* frame, const QString& url);

private:
    void dropNavigation();
    void arrive(const QString& requested, const QString& html, const QUrl& location);

    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    int m_navigation = 0; // counts navigations, so that a dropped one completes never
    std::unique_ptr<HtmlDocument> m_document;
};
