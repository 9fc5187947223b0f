#include "PortalRequest.h"

#include "PortalResponseListener.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace PortalRequest {

QString newToken()
{
    static int counter = 0;
    return QStringLiteral("pictray%1").arg(++counter);
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

    QDBusMessage message = QDBusMessage::createMethodCall(
        QString::fromUtf16(service), QString::fromUtf16(objectPath), interface, method);
    message.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), listener);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, listener, [listener, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            listener->fail();
    });
}

} // namespace PortalRequest
