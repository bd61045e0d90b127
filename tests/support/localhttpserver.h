#pragma once

// A small HTTP server on 127.0.0.1 for the network tests and benchmarks: it
// answers each request through a handler, one answer a connection, and keeps
// the requests it saw. An answer may also be silence (the connection stays
// open and nothing comes) or a hang-up (the connection is dropped at once).

#include <QTcpServer>
#include <QTcpSocket>

#include <functional>

struct HttpAnswer {
    enum Kind { Answer, Silence, HangUp };

    int status = 200;
    QByteArray body = {};
    Kind kind = Answer;
    QByteArray headers = {}; // further header lines, each ended by "\r\n"

    static HttpAnswer error(int status) { return {status, "<html>" + QByteArray::number(status) + "</html>"}; }
};

class LocalHttpServer : public QTcpServer {
public:
    // Called with the target of each request: its path and query, as sent.
    using Handler = std::function<HttpAnswer(const QByteArray& target)>;

    explicit LocalHttpServer(Handler handler) : m_handler(std::move(handler))
    {
        if (!listen(QHostAddress::LocalHost, 0))
            qFatal("the local HTTP server can't listen");
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
        });
    }

    // "http://127.0.0.1:PORT", no trailing slash.
    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()); }

    // An address where nothing listens: a port free a moment ago, closed again as the probe goes.
    static QString refusedBase()
    {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost, 0);
        return QStringLiteral("http://127.0.0.1:%1").arg(probe.serverPort());
    }

    QList<QByteArray> heads;   // each request's line and header lines, as sent
    QList<QByteArray> targets; // each request's target

private:
    void serve(QTcpSocket* socket)
    {
        // The head of the request is all that the clients here send.
        const QByteArray head = socket->peek(socket->bytesAvailable());
        if (!head.contains("\r\n\r\n"))
            return;
        socket->readAll();
        heads.append(head);
        targets.append(head.split(' ').value(1));
        const HttpAnswer answer = m_handler(targets.last());
        if (answer.kind == HttpAnswer::HangUp)
            socket->abort();
        if (answer.kind != HttpAnswer::Answer)
            return; // a silent connection stays open until the server goes
        socket->write("HTTP/1.1 " + QByteArray::number(answer.status) + " Status\r\n" + answer.headers
                      + "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\nConnection: close\r\n\r\n"
                      + answer.body);
        socket->disconnectFromHost();
    }

    Handler m_handler;
};
