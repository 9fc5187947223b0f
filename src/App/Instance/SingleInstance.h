#pragma once

#include "InstanceRequest.h"

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

// One tray instance per user and settings file. The instance that takes the
// lock listens on a local socket; every other `pictray` process is a client
// that sends one request and waits for the answer. Socket and lock live in a
// folder only this user can enter, and each end checks that the other runs as
// this user, so no other account can answer in the tray's place.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<InstanceReply(const InstanceRequest&)>;

    // The socket's path: in $XDG_RUNTIME_DIR when that is private, else in
    // a folder "pictray-<uid>" of the temporary folder made for this user;
    // named after the settings file, so instances with their own settings
    // (tests, a second profile) do not meet. Nothing, with the reason for
    // the user in *problem, when that folder is not this user's alone.
    static std::optional<QString> defaultServerName(QString* problem = nullptr);

    // What a connection may cost the running instance. A client sends its
    // line at once, so one that stays silent for idleTimeout is dropped; past
    // maxConnections the oldest is. Every recheck the socket is listened on
    // again if it stopped working or its file went away.
    struct Limits {
        std::chrono::milliseconds idleTimeout{1000};
        int maxConnections = 32;
        std::chrono::milliseconds recheck{1000};
    };

    explicit SingleInstance(QString serverName, QObject* parent = nullptr);
    ~SingleInstance() override;

    void setLimits(const Limits& limits);
    // Takes the per-user lock; false when another live instance holds it.
    // Needs no application object, so a second start can find out cheaply.
    bool acquire();
    // Takes the lock if not yet taken and listens; false when either fails.
    // A socket left behind by a crashed instance is removed first.
    bool listen(Handler handler);
    QString serverName() const { return m_serverName; }
    int openConnections() const { return int(m_connections.size()); }

    // notOurs: whatever listens there runs as another user; it is told nothing.
    enum class SendResult { answered, notRunning, noAnswer, notOurs };
    // Sends one request to the instance listening on serverName. Blocking;
    // needs no event loop.
    static SendResult send(const QString& serverName, const InstanceRequest& request,
                           InstanceReply* reply, int timeoutMs = 3000);

private:
    bool startListening();
    void keepListening();
    void accept(QLocalSocket* socket);
    void serve(QLocalSocket* socket);

    QString m_serverName;
    // Before the server: its sockets tell the list when they go, also
    // while the server deletes them.
    QList<QLocalSocket*> m_connections; // oldest first
    QLocalServer m_server;
    std::unique_ptr<QLockFile> m_lock;
    Handler m_handler;
    Limits m_limits;
    QTimer m_recheck;
};
