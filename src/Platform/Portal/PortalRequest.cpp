#include "PortalRequest.h"

#include "PortalResponseListener.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace PortalRequest {

QString newToken()
{
    static int counter = 0;
    return QStringLiteral("pictray%1").arg(++counter);
}

QString sessionHandle(const QVariantMap& results)
{
    const QVariant handle = results.value(QStringLiteral("session_handle"));
    return handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path()
                                                : handle.toString();
}

void call(const QDBusConnection& bus, const QString& interface, const QString& method,
          QVariantList arguments, QObject* context, Answer answer)
{
    const QString token = newToken();
    QVariantMap options = arguments.isEmpty() ? QVariantMap() : arguments.takeLast().toMap();
    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);

    // The request's path is made of the caller's unique name and the token.
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    const QString path =
        QString::fromUtf16(objectPath) + QStringLiteral("/request/") + sender + u'/' + token;
    auto* listener = new PortalResponseListener(bus, path, context, std::move(answer));

    auto* watcher = new QDBusPendingCallWatcher(
        bus.asyncCall(directCall(interface, method, arguments)), listener);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, listener, [listener, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            listener->fail();
    });
}

QDBusMessage directCall(const QString& interface, const QString& method,
                        const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QString::fromUtf16(service), QString::fromUtf16(objectPath), interface, method);
    message.setArguments(arguments);
    return message;
}

void readProperty(const QDBusConnection& bus, const QString& interface, const QString& name,
                  QObject* context, const std::function<void(const QVariant&)>& answer)
{
    const QDBusMessage get = directCall(QStringLiteral("org.freedesktop.DBus.Properties"),
                                        QStringLiteral("Get"), {interface, name});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(get), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, answer] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        answer(reply.isError() ? QVariant() : reply.value().variant());
    });
}

} // namespace PortalRequest
