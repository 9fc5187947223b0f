#include "PortalHotKeyBackend.h"

#include "Platform/Xkb/XkbKeyboardLayout.h"
#include "PortalRequest.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QStringList>

namespace {

constexpr uint granted = 0;

PortalShortcuts shortcutsIn(const QVariantMap& results)
{
    return qdbus_cast<PortalShortcuts>(results.value(QStringLiteral("shortcuts")));
}

} // namespace

PortalHotKeyBackend::PortalHotKeyBackend(QDBusConnection bus, std::map<quint32, Shortcut> shortcuts,
                                         QObject* parent)
    : QObject(parent), m_bus(std::move(bus)), m_shortcuts(std::move(shortcuts))
{
    PortalShortcut::registerTypes();
}

PortalHotKeyBackend::~PortalHotKeyBackend() = default;

bool PortalHotKeyBackend::isOffered(const QDBusConnection& bus)
{
    if (!bus.isConnected() || !bus.interface())
        return false;
    const QString name = QString::fromUtf16(PortalRequest::service);
    if (bus.interface()->isServiceRegistered(name))
        return true;
    const QDBusReply<QStringList> activatable = bus.interface()->activatableServiceNames();
    return activatable.isValid() && activatable.value().contains(name);
}

QString PortalHotKeyBackend::triggerText(const KeyCombo& combo)
{
    QStringList parts;
    if (combo.modifiers & KeyCombo::controlFlag)
        parts << QStringLiteral("CTRL");
    if (combo.modifiers & KeyCombo::optionFlag)
        parts << QStringLiteral("ALT");
    if (combo.modifiers & KeyCombo::shiftFlag)
        parts << QStringLiteral("SHIFT");
    if (combo.modifiers & KeyCombo::commandFlag)
        parts << QStringLiteral("LOGO");
    parts << XkbKeyboardLayout::keysymName(combo.keyCode);
    return parts.join(u'+');
}

void PortalHotKeyBackend::installHandler(PressHandler handler)
{
    m_handler = std::move(handler);
}

bool PortalHotKeyBackend::registerHotKey(quint32 number, const KeyCombo& combo)
{
    if (m_shortcuts.count(number) == 0)
        return false;
    m_combos[number] = combo;
    m_enabled.insert(number);
    if (!m_started) {
        m_started = true;
        // After the event loop starts, when every hot key has been registered.
        QMetaObject::invokeMethod(this, &PortalHotKeyBackend::startSession, Qt::QueuedConnection);
    }
    return m_available;
}

void PortalHotKeyBackend::unregisterHotKey(quint32 number)
{
    m_enabled.erase(number);
}

QString PortalHotKeyBackend::trigger(quint32 number) const
{
    const auto shortcut = m_shortcuts.find(number);
    if (shortcut == m_shortcuts.end())
        return QString();
    const auto found = m_triggers.find(shortcut->second.id);
    return found == m_triggers.end() ? QString() : found->second;
}

QString PortalHotKeyBackend::desktopNote(quint32 number) const
{
    const auto shortcut = m_shortcuts.find(number);
    if (shortcut == m_shortcuts.end())
        return QString();
    if (!m_available)
        return bindCommandNote(shortcut->second.command);
    const QString key = trigger(number);
    if (key.isEmpty())
        return QStringLiteral("Your desktop has not given this shortcut a key yet.");
    return QStringLiteral("Your desktop runs it with %1; change it in the desktop's keyboard "
                          "settings.")
        .arg(key);
}

void PortalHotKeyBackend::installNotesHandler(const std::function<void()>& changed)
{
    m_notesChanged = changed;
}

QString PortalHotKeyBackend::bindCommandNote(const QString& command)
{
    return QStringLiteral("Your desktop has no global shortcuts for programs: bind \u201C%1\u201D "
                          "to a key in its keyboard settings.")
        .arg(command);
}

QString PortalHotKeyBackend::interface() const
{
    return QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
}

void PortalHotKeyBackend::startSession()
{
    const QVariantMap options{{QStringLiteral("session_handle_token"), PortalRequest::newToken()}};
    PortalRequest::call(
        m_bus, interface(), QStringLiteral("CreateSession"), {options}, this,
        [this](uint response, const QVariantMap& results) {
            m_session = PortalRequest::sessionHandle(results);
            if (response != granted || m_session.isEmpty()) {
                unavailable();
                return;
            }
            const QString service = QString::fromUtf16(PortalRequest::service);
            const QString path = QString::fromUtf16(PortalRequest::objectPath);
            m_bus.connect(service, path, interface(), QStringLiteral("Activated"), this,
                          SLOT(activated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
            m_bus.connect(service, path, interface(), QStringLiteral("ShortcutsChanged"), this,
                          SLOT(shortcutsChanged(QDBusObjectPath, PortalShortcuts)));
            listShortcuts();
            readVersion();
        });
}

void PortalHotKeyBackend::readVersion()
{
    PortalRequest::readProperty(m_bus, interface(), QStringLiteral("version"), this,
                                [this](const QVariant& version) {
                                    m_version = version.toUInt();
                                    if (m_notesChanged)
                                        m_notesChanged();
                                });
}

bool PortalHotKeyBackend::canConfigureOnDesktop() const
{
    return m_available && !m_session.isEmpty() && m_version >= 2;
}

void PortalHotKeyBackend::configureOnDesktop()
{
    if (!canConfigureOnDesktop())
        return;
    // Answered by the desktop's own window, not by a Request.
    m_bus.asyncCall(PortalRequest::directCall(
        interface(), QStringLiteral("ConfigureShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QString(), QVariantMap()}));
}

void PortalHotKeyBackend::listShortcuts()
{
    PortalRequest::call(m_bus, interface(), QStringLiteral("ListShortcuts"),
                        {QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap()}, this,
                        [this](uint response, const QVariantMap& results) {
                            if (response != granted) {
                                unavailable();
                                return;
                            }
                            const PortalShortcuts listed = shortcutsIn(results);
                            takeTriggers(listed);
                            bindMissing(listed);
                        });
}

void PortalHotKeyBackend::bindMissing(const PortalShortcuts& listed)
{
    std::set<QString> known;
    for (const PortalShortcut& shortcut : listed)
        known.insert(shortcut.id);
    bool missing = false;
    // The whole set in one call: desktops take a bind as the session's full
    // list, and one call asks the user once.
    PortalShortcuts wanted;
    for (const auto& [number, shortcut] : m_shortcuts) {
        QVariantMap properties{{QStringLiteral("description"), shortcut.description}};
        if (const auto combo = m_combos.find(number); combo != m_combos.end())
            properties.insert(QStringLiteral("preferred_trigger"), triggerText(combo->second));
        wanted.append({shortcut.id, properties});
        missing = missing || (m_combos.count(number) != 0 && known.count(shortcut.id) == 0);
    }
    if (!missing)
        return;
    PortalRequest::call(m_bus, interface(), QStringLiteral("BindShortcuts"),
                        {QVariant::fromValue(QDBusObjectPath(m_session)),
                         QVariant::fromValue(wanted), QString(), QVariantMap()},
                        this, [this](uint response, const QVariantMap& results) {
                            if (response == granted)
                                takeTriggers(shortcutsIn(results));
                        });
}

void PortalHotKeyBackend::takeTriggers(const PortalShortcuts& shortcuts)
{
    m_triggers.clear();
    for (const PortalShortcut& shortcut : shortcuts)
        m_triggers[shortcut.id] =
            shortcut.properties.value(QStringLiteral("trigger_description")).toString();
    if (m_notesChanged)
        m_notesChanged();
}

void PortalHotKeyBackend::unavailable()
{
    m_available = false;
    m_triggers.clear();
    if (m_notesChanged)
        m_notesChanged();
}

void PortalHotKeyBackend::activated(const QDBusObjectPath& session, const QString& id,
                                    qulonglong /*timestamp*/, const QVariantMap& /*options*/)
{
    if (session.path() != m_session || !m_handler)
        return;
    for (const auto& [number, shortcut] : m_shortcuts) {
        if (shortcut.id == id && m_enabled.count(number) != 0)
            m_handler(number);
    }
}

void PortalHotKeyBackend::shortcutsChanged(const QDBusObjectPath& session,
                                           const PortalShortcuts& shortcuts)
{
    if (session.path() == m_session)
        takeTriggers(shortcuts);
}
