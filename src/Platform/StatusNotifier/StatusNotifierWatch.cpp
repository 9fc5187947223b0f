#include "StatusNotifierWatch.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

QString watcherService()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString watcherPath()
{
    return QStringLiteral("/StatusNotifierWatcher");
}

} // namespace

StatusNotifierWatch::StatusNotifierWatch(QObject* parent)
    : StatusNotifierWatch(QDBusConnection::sessionBus(), parent)
{
}

StatusNotifierWatch::StatusNotifierWatch(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_bus(std::move(bus))
{
    if (!m_bus.isConnected())
        return;
    m_watcher.setConnection(m_bus);
    m_watcher.addWatchedService(watcherService());
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                if (owner.isEmpty())
                    setPresent(false);
                else
                    check();
            });
    // A watcher may come up before its host registers.
    m_bus.connect(watcherService(), watcherPath(), watcherService(),
                  QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(hostRegistered()));
    check();
}

StatusNotifierWatch::~StatusNotifierWatch() = default;

void StatusNotifierWatch::hostRegistered()
{
    check();
}

void StatusNotifierWatch::check()
{
    QDBusMessage get = QDBusMessage::createMethodCall(
        watcherService(), watcherPath(), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    get.setArguments({watcherService(), QStringLiteral("IsStatusNotifierHostRegistered")});
    auto* call = new QDBusPendingCallWatcher(m_bus.asyncCall(get), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *call;
        setPresent(reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusNotifierWatch::setPresent(bool present)
{
    if (present == m_present)
        return;
    m_present = present;
    emit presenceChanged();
}
