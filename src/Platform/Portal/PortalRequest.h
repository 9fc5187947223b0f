#pragma once

#include <QDBusConnection>
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

// Calls `method` of `interface` with `arguments`, whose last one is the
// options map; adds the handle_token and listens for the Response before the
// call, so a quick answer is not missed. A call that fails answers 2 with no
// results. `context` going away drops the answer.
void call(const QDBusConnection& bus, const QString& interface, const QString& method,
          QVariantList arguments, QObject* context, Answer answer);

} // namespace PortalRequest
