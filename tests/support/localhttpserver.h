#pragma once

// A small HTTP server on 127.0.0.1 for the network tests and benchmarks: it
// answers each request through a handler, one answer a connection, and keeps
// the requests it saw. An answer may also be silence (the connection stays
// open and nothing comes) or a hang-up (the connection is dropped at once).

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QTcpServer>

#include <functional>

class QTcpSocket;

struct HttpRequest {
    QByteArray method;
    QByteArray target;                     // path and query, as sent
    QMap<QByteArray, QByteArray> headers; // names in lower case
};

struct HttpAnswer {
    enum Kind { Answer, Silence, HangUp };

    int status = 200;
    QMap<QByteArray, QByteArray> headers;
    QByteArray body;
    Kind kind = Answer;

    static HttpAnswer ok(const QByteArray& body) { return {200, {}, body}; }
    static HttpAnswer withStatus(int status) { return {status, {}, "<html>" + QByteArray::number(status) + "</html>"}; }
    static HttpAnswer silence() { return {0, {}, {}, Silence}; }
};

class LocalHttpServer : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    explicit LocalHttpServer(Handler handler);

    // "http://127.0.0.1:PORT", no trailing slash.
    QString base() const;
    // An address where nothing listens: connections to it are refused.
    static QString refusedBase();

    QList<HttpRequest> requests;
    QList<QByteArray> targets() const;

private:
    void serve(QTcpSocket* socket);

    QTcpServer m_server;
    Handler m_handler;
};
