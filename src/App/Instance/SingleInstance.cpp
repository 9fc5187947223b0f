#include "SingleInstance.h"

#include "State/SettingsStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <unistd.h>

namespace {

// A request is one short line; anything longer is not ours.
constexpr qint64 maxLineBytes = 256;

} // namespace

QString SingleInstance::defaultServerName()
{
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        folder = QDir::tempPath();
    const QByteArray settingsHash =
        QCryptographicHash::hash(SettingsStore::defaultPath().toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(12);
    return QDir(folder).filePath(
        QStringLiteral("pictray-%1-%2.socket").arg(::getuid()).arg(QLatin1String(settingsHash)));
}

SingleInstance::SingleInstance(QString serverName, QObject* parent)
    : QObject(parent), m_serverName(std::move(serverName))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = m_server.nextPendingConnection())
            serve(socket);
    });
}

SingleInstance::~SingleInstance()
{
    m_server.close();
}

bool SingleInstance::acquire()
{
    if (m_lock)
        return true;
    // The lock decides who is first; the socket alone cannot, since two
    // instances starting together would each remove the other's socket.
    auto lock = std::make_unique<QLockFile>(m_serverName + QStringLiteral(".lock"));
    lock->setStaleLockTime(0); // stale only when its process is gone
    if (!lock->tryLock(0))
        return false;
    m_lock = std::move(lock);
    return true;
}

bool SingleInstance::listen(Handler handler)
{
    if (!acquire())
        return false;
    QLocalServer::removeServer(m_serverName); // left behind by a crash
    if (!m_server.listen(m_serverName))
        return false;
    m_handler = std::move(handler);
    return true;
}

void SingleInstance::serve(QLocalSocket* socket)
{
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
        if (!socket->canReadLine()) {
            if (socket->bytesAvailable() > maxLineBytes)
                socket->disconnectFromServer();
            return;
        }
        const QByteArray line = socket->readLine(maxLineBytes);
        const auto request = InstanceRequest::decode(line);
        InstanceReply reply{false, QStringLiteral("Unknown request.")};
        if (request && m_handler)
            reply = m_handler(*request);
        socket->write(reply.encode());
        socket->disconnectFromServer();
    });
}

SingleInstance::SendResult SingleInstance::send(const QString& serverName,
                                                const InstanceRequest& request,
                                                InstanceReply* reply, int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(serverName);
    if (!socket.waitForConnected(timeoutMs))
        return SendResult::notRunning;
    socket.write(request.encode());
    if (!socket.waitForBytesWritten(timeoutMs))
        return SendResult::noAnswer;
    QByteArray line;
    while (true) {
        line += socket.readAll();
        if (line.endsWith('\n') || !socket.waitForReadyRead(timeoutMs))
            break;
    }
    if (!line.endsWith('\n'))
        return SendResult::noAnswer;
    if (reply)
        *reply = InstanceReply::decode(line);
    return SendResult::answered;
}
