#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantList>
#include <QVariantMap>
#include <functional>

// The desktop portal's way of answering: a method returns the path of a
// Request object at once, and the answer comes later as that object's
// Response signal (0 = granted, 1 = cancelled by the user, 2 = failed).
namespace PortalRequest {

inline constexpr char16_t service[] = u"org.freedesktop.portal.Desktop";
inline constexpr char16_t objectPath[] = u"/org/freedesktop/portal/desktop";

using Answer = std::function<void(uint response, const QVariantMap& results)>;

// A token unique in this process, for handle_token and session_handle_token.
QString newToken();

// The session a CreateSession answer names. A string by the interfaces'
// description; some portals send an object path.
QString sessionHandle(const QVariantMap& results);

// Calls `method` of `interface` with `arguments`, whose last one is the
// options map; adds the handle_token and listens for the Response before the
// call, so a quick answer is not missed. A call that fails answers 2 with no
// results. `context` going away drops the answer.
void call(const QDBusConnection& bus, const QString& interface, const QString& method,
          QVariantList arguments, QObject* context, Answer answer);

// A call of the portal object's own that is answered directly, not through a
// Request.
QDBusMessage directCall(const QString& interface, const QString& method,
                        const QVariantList& arguments);

// Reads a property of one of the portal's interfaces; an invalid QVariant
// when the portal lacks it. `context` going away drops the answer.
void readProperty(const QDBusConnection& bus, const QString& interface, const QString& name,
                  QObject* context, const std::function<void(const QVariant&)>& answer);

} // namespace PortalRequest
