#pragma once

#include "WindowingSession.h"

#include <QColor>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class HotKeyBackend;
class KeyboardLayout;
class LoginItem;
class Paster;
class SettingsStore;

// The platform's side of every concern that differs between windowing
// systems, chosen once at start-up from the Qt platform the program runs on.
struct PlatformBackends {
    std::unique_ptr<HotKeyBackend> hotKeys;
    std::unique_ptr<Paster> paster;
    std::shared_ptr<const KeyboardLayout> keyboardLayout;
    std::unique_ptr<LoginItem> loginItem;
    WindowingSession session;
    // The colour the tray wants its icons in, asked again when the desktop
    // changes its look; empty when the tray does not say.
    std::function<std::optional<QColor>()> trayForeground;

    PlatformBackends();
    PlatformBackends(PlatformBackends&&) noexcept;
    PlatformBackends& operator=(PlatformBackends&&) noexcept;
    ~PlatformBackends();

    // "xcb": X11 grabs, XTest paste, the server's keyboard layout, a panel
    // placed by the program under the tray icon. Any other platform: no
    // global grabs, no paste, the environment's keymap, a centred panel.
    // "wayland": shortcuts and the paste keystroke through the desktop portal
    // where the session bus offers it, copies from a focused surface. X11 and
    // Wayland sessions start programs from XDG autostart entries. `store`
    // keeps what a backend must remember across starts (the portal's consent).
    static PlatformBackends forPlatform(const QString& platformName,
                                        SettingsStore* store = nullptr);
    // The Qt platform to ask for in a session of this XDG_SESSION_TYPE and
    // WAYLAND_DISPLAY: Wayland's own in a Wayland session, since XWayland's
    // key grabs and clipboard reach only X11 windows; empty leaves Qt's choice.
    static QByteArray preferredQtPlatform(const QByteArray& sessionType,
                                          const QByteArray& waylandDisplay);
    // Null backends that do nothing: for tests.
    static PlatformBackends null();
};
