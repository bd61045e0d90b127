#pragma once

// A small HTTP server on 127.0.0.1 for the network tests and benchmarks: it
// answers each request through a handler, one answer a connection, and keeps
// the requests it saw. An answer may also be silence (the connection stays
// open and nothing comes) or a hang-up (the connection is dropped at once).

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>
#include <QTcpServer>

#include <functional>

class QTcpSocket;

struct HttpRequest {
    QByteArray method;
    QByteArray target; // path and query, as sent
    QList<QPair<QByteArray, QByteArray>> headers;

    QByteArray header(const QByteArray& name) const;
};

struct HttpAnswer {
    enum Kind { Answer, Silence, HangUp };

    int status = 200;
    QByteArray reason = "OK";
    QList<QPair<QByteArray, QByteArray>> headers;
    QByteArray body;
    Kind kind = Answer;

    static HttpAnswer ok(const QByteArray& body, const QByteArray& contentType = "text/plain");
    static HttpAnswer withStatus(int status, const QByteArray& reason, const QByteArray& body = {});
    static HttpAnswer silence() { return {0, {}, {}, {}, Silence}; }
    static HttpAnswer hangUp() { return {0, {}, {}, {}, HangUp}; }
};

class LocalHttpServer : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    explicit LocalHttpServer(Handler handler, QObject* parent = nullptr);

    // "http://127.0.0.1:PORT", no trailing slash.
    QString base() const;
    QList<HttpRequest> requests;

    // An address where nothing listens: connections to it are refused.
    static QString refusedBase();

private:
    void serve(QTcpSocket* socket);

    QTcpServer m_server;
    Handler m_handler;
};
