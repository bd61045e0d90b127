#include "localhttpserver.h"

#include <QTcpSocket>

LocalHttpServer::LocalHttpServer(Handler handler) : m_handler(std::move(handler))
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
    QTcpServer probe; // a port free a moment ago, closed again as the probe goes
    return QStringLiteral("http://127.0.0.1:%1").arg(probe.listen(QHostAddress::LocalHost, 0) ? probe.serverPort() : 1);
}

QList<QByteArray> LocalHttpServer::targets() const
{
    QList<QByteArray> targets;
    for (const HttpRequest& request : requests)
        targets.append(request.target);
    return targets;
}

void LocalHttpServer::serve(QTcpSocket* socket)
{
    // The head of the request is all that the clients here send.
    const QByteArray head = socket->property("head").toByteArray() + socket->readAll();
    socket->setProperty("head", head);
    if (!head.contains("\r\n\r\n"))
        return;
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
    const QList<QByteArray> lines = head.left(head.indexOf("\r\n\r\n")).split('\n');
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');
    HttpRequest request{requestLine.value(0), requestLine.value(1), {}};
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    requests.append(request);

    const HttpAnswer answer = m_handler(request);
    if (answer.kind == HttpAnswer::HangUp)
        socket->abort();
    if (answer.kind != HttpAnswer::Answer)
        return; // a silent connection stays open until the server goes
    QByteArray response = "HTTP/1.1 " + QByteArray::number(answer.status) + " Status\r\n";
    for (auto header = answer.headers.cbegin(); header != answer.headers.cend(); ++header)
        response += header.key() + ": " + header.value() + "\r\n";
    response += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\nConnection: close\r\n\r\n";
    socket->write(response + answer.body);
    socket->disconnectFromHost();
}
