#include "localhttpserver.h"

#include <QTcpSocket>

QByteArray HttpRequest::header(const QByteArray& name) const
{
    for (const auto& [key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

HttpAnswer HttpAnswer::ok(const QByteArray& body, const QByteArray& contentType)
{
    return {200, "OK", {{"Content-Type", contentType}}, body, Answer};
}

HttpAnswer HttpAnswer::withStatus(int status, const QByteArray& reason, const QByteArray& body)
{
    return {status, reason, {{"Content-Type", "text/html"}}, body, Answer};
}

LocalHttpServer::LocalHttpServer(Handler handler, QObject* parent) : QObject(parent), m_handler(std::move(handler))
{
    if (!m_server.listen(QHostAddress::LocalHost, 0))
        qFatal("the local HTTP server can't listen");
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            socket->setParent(this);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QString LocalHttpServer::base() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
}

QString LocalHttpServer::refusedBase()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}

void LocalHttpServer::serve(QTcpSocket* socket)
{
    // One request a connection: the head is all the tests send.
    QByteArray head = socket->property("head").toByteArray() + socket->readAll();
    const qsizetype end = head.indexOf("\r\n\r\n");
    if (end < 0) {
        socket->setProperty("head", head);
        return;
    }
    HttpRequest request;
    const QList<QByteArray> lines = head.left(end).split('\n');
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');
    request.method = requestLine.value(0);
    request.target = requestLine.value(1);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines[i].indexOf(':');
        if (colon > 0)
            request.headers.append({lines[i].left(colon).trimmed(), lines[i].mid(colon + 1).trimmed()});
    }
    requests.append(request);
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);

    const HttpAnswer answer = m_handler(request);
    if (answer.kind == HttpAnswer::Silence)
        return; // the socket stays open until the server goes
    if (answer.kind == HttpAnswer::HangUp) {
        socket->abort();
        return;
    }
    QByteArray response = "HTTP/1.1 " + QByteArray::number(answer.status) + ' ' + answer.reason + "\r\n";
    for (const auto& [name, value] : answer.headers)
        response += name + ": " + value + "\r\n";
    response += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\nConnection: close\r\n\r\n";
    socket->write(response + answer.body);
    socket->disconnectFromHost();
}
