#include "PlatformBackends.h"

#include "HotKeyCenter.h"
#include "Null/NullHotKeyBackend.h"
#include "Null/NullLoginItem.h"
#include "Null/NullPaster.h"
#include "Portal/PortalHotKeyBackend.h"
#include "Portal/PortalPaster.h"
#include "X11/X11HotKeyBackend.h"
#include "X11/X11Paster.h"
#include "X11/X11TrayColors.h"
#include "X11/Xcb.h"
#include "Xdg/XdgAutostartLoginItem.h"
#include "Xkb/XkbKeyboardLayout.h"

namespace {

PlatformBackends forX11()
{
    PlatformBackends backends;
    if (auto grabs = X11HotKeyBackend::create())
        backends.hotKeys = std::move(grabs);
    else
        backends.hotKeys = std::make_unique<NullHotKeyBackend>();
    backends.paster = std::make_unique<X11Paster>();
    backends.keyboardLayout = XkbKeyboardLayout::fromX11Server(Xcb::qtConnection());
    if (!backends.keyboardLayout)
        backends.keyboardLayout = XkbKeyboardLayout::fromEnvironment();
    backends.session = WindowingSession::x11();
    backends.trayForeground = &X11TrayColors::foreground;
    backends.loginItem = std::make_unique<XdgAutostartLoginItem>();
    return backends;
}

// No key grabs, window placement or synthetic input: the desktop portal
// binds the shortcuts and sends the paste keystroke, the compositor places
// the panel.
PlatformBackends forWayland(SettingsStore* store)
{
    PlatformBackends backends = PlatformBackends::null();
    using ID = HotKeyCenter::ID;
    std::map<quint32, PortalHotKeyBackend::Shortcut> shortcuts{
        {quint32(ID::picker),
         {QStringLiteral("picker"), QStringLiteral("Open the picker"),
          QStringLiteral("pictray toggle")}},
        {quint32(ID::copyLast),
         {QStringLiteral("copyLast"), QStringLiteral("Copy the last icon again"),
          QStringLiteral("pictray copy-last")}},
    };
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (PortalHotKeyBackend::isOffered(bus)) {
        backends.hotKeys = std::make_unique<PortalHotKeyBackend>(bus, std::move(shortcuts));
        if (store)
            backends.paster = std::make_unique<PortalPaster>(bus, *store);
    } else {
        std::map<quint32, QString> notes;
        for (const auto& [number, shortcut] : shortcuts)
            notes[number] = PortalHotKeyBackend::bindCommandNote(shortcut.command);
        backends.hotKeys = std::make_unique<NullHotKeyBackend>(std::move(notes));
    }
    backends.keyboardLayout = XkbKeyboardLayout::fromEnvironment();
    backends.session = WindowingSession::wayland();
    // Its desktops read XDG autostart entries too.
    backends.loginItem = std::make_unique<XdgAutostartLoginItem>();
    return backends;
}

} // namespace

PlatformBackends::PlatformBackends() = default;
PlatformBackends::PlatformBackends(PlatformBackends&&) noexcept = default;
PlatformBackends& PlatformBackends::operator=(PlatformBackends&&) noexcept = default;
PlatformBackends::~PlatformBackends() = default;

PlatformBackends PlatformBackends::forPlatform(const QString& platformName, SettingsStore* store)
{
    if (platformName == u"xcb")
        return forX11();
    if (platformName.startsWith(u"wayland"))
        return forWayland(store);
    PlatformBackends backends = null();
    backends.keyboardLayout = XkbKeyboardLayout::fromEnvironment();
    return backends;
}

QByteArray PlatformBackends::preferredQtPlatform(const QByteArray& sessionType,
                                                 const QByteArray& waylandDisplay)
{
    const bool wayland =
        sessionType == "wayland" || (sessionType != "x11" && !waylandDisplay.isEmpty());
    // X11 stays the way out when the Wayland plugin is missing.
    return wayland ? QByteArrayLiteral("wayland;xcb") : QByteArray();
}

PlatformBackends PlatformBackends::null()
{
    PlatformBackends backends;
    backends.hotKeys = std::make_unique<NullHotKeyBackend>();
    backends.paster = std::make_unique<NullPaster>();
    backends.session = WindowingSession::compositorPlaced();
    backends.loginItem = std::make_unique<NullLoginItem>();
    backends.trayForeground = [] { return std::optional<QColor>(); };
    return backends;
}
