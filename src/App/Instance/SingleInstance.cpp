#include "SingleInstance.h"

#include "Base/PrivateFolder.h"
#include "PeerUser.h"
#include "State/SettingsStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <unistd.h>

namespace {

// A request is one short line; anything longer is not ours.
constexpr qint64 maxLineBytes = 256;
// An answer is one line with a message for the user.
constexpr qint64 maxReplyBytes = 4096;

void drop(QLocalSocket* socket)
{
    socket->abort();
    socket->deleteLater();
}

} // namespace

std::optional<QString> SingleInstance::defaultServerName(QString* problem)
{
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (folder.isEmpty() || !QDir::isAbsolutePath(folder) || !PrivateFolder::isPrivate(folder)) {
        // A name others can predict: only a folder that is ours alone keeps
        // them from listening there first or planting the lock.
        folder = QDir::tempPath() + QStringLiteral("/pictray-%1").arg(::getuid());
        if (!PrivateFolder::claim(folder)) {
            if (problem)
                *problem = QStringLiteral(
                               "%1 is not a folder only you can enter (your own, mode 0700, not a "
                               "link). Remove it, or set XDG_RUNTIME_DIR to a private folder.")
                               .arg(folder);
            return std::nullopt;
        }
    }
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
            accept(socket);
    });
    connect(&m_recheck, &QTimer::timeout, this, &SingleInstance::keepListening);
}

SingleInstance::~SingleInstance()
{
    m_server.close();
}

void SingleInstance::setLimits(const Limits& limits)
{
    m_limits = limits;
    if (m_recheck.isActive())
        m_recheck.start(m_limits.recheck);
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
    if (!acquire() || !startListening())
        return false;
    m_handler = std::move(handler);
    m_recheck.start(m_limits.recheck);
    return true;
}

bool SingleInstance::startListening()
{
    QLocalServer::removeServer(m_serverName); // left behind by a crash
    return m_server.listen(m_serverName);
}

// Qt closes the server for good when accepting fails (out of file
// descriptors), and a cleaner of the temporary folder may remove the socket:
// either would leave `pictray toggle` saying the tray is not running.
void SingleInstance::keepListening()
{
    if (m_server.isListening() && QFileInfo::exists(m_server.fullServerName()))
        return;
    m_server.close();
    startListening();
}

void SingleInstance::accept(QLocalSocket* socket)
{
    if (!PeerUser::isThisUser(*socket)) {
        drop(socket);
        return;
    }
    if (m_connections.size() >= m_limits.maxConnections)
        drop(m_connections.takeFirst());
    m_connections.append(socket);
    connect(socket, &QObject::destroyed, this, [this, socket] { m_connections.removeOne(socket); });
    auto* idle = new QTimer(socket);
    idle->setSingleShot(true);
    connect(idle, &QTimer::timeout, socket, [socket] { drop(socket); });
    idle->start(m_limits.idleTimeout);
    serve(socket);
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
    if (!PeerUser::isThisUser(socket))
        return SendResult::notOurs;
    socket.write(request.encode());
    if (!socket.waitForBytesWritten(timeoutMs))
        return SendResult::noAnswer;
    QByteArray line;
    while (line.size() <= maxReplyBytes) {
        line += socket.read(maxReplyBytes + 1 - line.size());
        if (line.endsWith('\n') || !socket.waitForReadyRead(timeoutMs))
            break;
    }
    if (!line.endsWith('\n'))
        return SendResult::noAnswer;
    if (reply)
        *reply = InstanceReply::decode(line);
    return SendResult::answered;
}
