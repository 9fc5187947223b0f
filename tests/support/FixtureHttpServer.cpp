#include "FixtureHttpServer.h"

#include <QTcpSocket>

FixtureHttpServer::FixtureHttpServer(QObject* parent) : QObject(parent)
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("fixture server cannot listen: %s", qPrintable(m_server.errorString()));
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QUrl FixtureHttpServer::url(const QString& path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path));
}

void FixtureHttpServer::serve(const QString& path, Response response)
{
    m_responses.insert(path, std::move(response));
}

void FixtureHttpServer::redirect(const QString& path, const QByteArray& location)
{
    m_responses.insert(path, Response{302, {}});
    m_redirects.insert(path, location);
}

void FixtureHttpServer::answer(QTcpSocket* socket)
{
    // Requests are small GETs: wait for the end of the header block.
    const QByteArray request = socket->peek(socket->bytesAvailable());
    if (!request.contains("\r\n\r\n"))
        return;
    socket->readAll();
    const QList<QByteArray> line = request.left(request.indexOf("\r\n")).split(' ');
    const QString path = line.size() > 1
                             ? QString::fromUtf8(QUrl::fromPercentEncoding(line[1]).toUtf8())
                             : QString();
    m_requests.append(path);
    const Response response =
        m_responses.value(path, Response{404, QByteArrayLiteral("not found")});
    if (response.status == 0)
        return;
    QByteArray reply = "HTTP/1.1 " + QByteArray::number(response.status) + " Fixture\r\n";
    if (const auto location = m_redirects.constFind(path); location != m_redirects.cend())
        reply += "Location: " + *location + "\r\n";
    reply += "Content-Type: application/json\r\nConnection: close\r\nContent-Length: " +
             QByteArray::number(response.body.size()) + "\r\n\r\n" + response.body;
    socket->write(reply);
    socket->disconnectFromHost();
}
