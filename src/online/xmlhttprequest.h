#pragma once

// The request object under the download control: one asynchronous HTTP
// request at a time over Qt's network access, reporting its progress the way
// the XMLHTTP request objects do. ReadyState is 0 before Open and after
// abort, 1 from Open, 2 once the status line and headers are in, 3 while the
// body arrives and 4 at the end, whatever the end. Status is the HTTP status
// of the answer, and 0 when no answer came: a connection refused, a host that
// can't be found, a connection reset, a request never sent. Where the object
// has nothing to give (a header before the answer, a status before the end)
// it gives 0 or the empty text, which is what a caller that swallows the
// request object's failures is left with.

#include <QByteArray>
#include <QList>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QString>

// A failure below HTTP: no connection, a connection lost, a proxy that
// failed. A request that ends so has no HTTP status of its own.
bool isConnectionFailure(QNetworkReply::NetworkError error);

// Lets a reply under way go: its signals no longer reach `receiver`, it is
// aborted and deleted, and `reply` is left empty.
void abandonReply(QPointer<QNetworkReply>& reply, QObject* receiver);

class XmlHttpRequest : public QObject {
    Q_OBJECT

public:
    explicit XmlHttpRequest(QObject* parent = nullptr);
    ~XmlHttpRequest() override;

    // Always asynchronous: send returns at once and the state moves on in
    // the event loop. A new Open drops whatever the object held.
    void Open(const QString& method, const QString& url);
    void SetRequestHeader(const QString& header, const QString& value);
    void send(const QString& body);
    void abort();

    int ReadyState() const { return m_readyState; }
    int Status() const;
    QString StatusText() const;
    QString GetResponseHeader(const QString& header) const;
    QString GetAllResponseHeaders() const;
    QByteArray ResponseBody() const;
    // The body decoded by the charset of the answer's Content-Type, UTF-8
    // when it names none.
    QString ResponseText() const;

private:
    void readHead();
    void finish();

    QNetworkAccessManager m_network;
    QNetworkRequest m_request;
    QByteArray m_method;
    QPointer<QNetworkReply> m_reply;
    int m_readyState = 0;
    bool m_answered = false; // an HTTP answer came, so its status stands
    int m_status = 0;
    QString m_statusText;
    QList<QNetworkReply::RawHeaderPair> m_headers;
    QByteArray m_body;
};
