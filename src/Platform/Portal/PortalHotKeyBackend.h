#pragma once

#include "Platform/HotKeyBackend.h"
#include "PortalShortcut.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <map>
#include <set>

// Global shortcuts through the desktop portal's GlobalShortcuts interface,
// for sessions without key grabs (Wayland). The desktop owns the keys: at
// start the backend lists what the desktop has bound for Pictray and binds
// only when a wanted shortcut is missing, with the stored combination as the
// preferred trigger, so the user is asked once and not at every start.
class PortalHotKeyBackend final : public QObject, public HotKeyBackend {
    Q_OBJECT

public:
    // The portal's id and description of each hot key number.
    struct Shortcut {
        QString id;
        QString description;
        // The command that does the same, for desktops without the portal.
        QString command;
    };

    PortalHotKeyBackend(QDBusConnection bus, std::map<quint32, Shortcut> shortcuts,
                        QObject* parent = nullptr);
    ~PortalHotKeyBackend() override;

    // Whether a session bus offers the desktop portal (running or startable).
    static bool isOffered(const QDBusConnection& bus);
    // The portal's text for a combination: "CTRL+ALT+i".
    static QString triggerText(const KeyCombo& combo);

    void installHandler(PressHandler handler) override;
    // Taken at once: the desktop answers later, and may choose another key.
    bool registerHotKey(quint32 number, const KeyCombo& combo) override;
    void unregisterHotKey(quint32 number) override;

    // The key the desktop reports for a hot key number; empty when unbound.
    QString trigger(quint32 number) const;
    QString desktopNote(quint32 number) const override;
    void installNotesHandler(const std::function<void()>& changed) override;
    // The note for a desktop without global shortcuts.
    static QString bindCommandNote(const QString& command);
    // False once the portal turned out to lack global shortcuts.
    bool isAvailable() const { return m_available; }
    bool desktopOwnsKeys() const override { return true; }
    // The desktop's dialog came with the second version of the interface.
    bool canConfigureOnDesktop() const override;
    void configureOnDesktop() override;

private slots:
    void activated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                   const QVariantMap& options);
    void shortcutsChanged(const QDBusObjectPath& session, const PortalShortcuts& shortcuts);

private:
    void startSession();
    void listShortcuts();
    void bindMissing(const PortalShortcuts& listed);
    void takeTriggers(const PortalShortcuts& shortcuts);
    void unavailable();
    void readVersion();
    QString interface() const;

    QDBusConnection m_bus;
    std::map<quint32, Shortcut> m_shortcuts;
    std::map<quint32, KeyCombo> m_combos;
    std::set<quint32> m_enabled;
    std::map<QString, QString> m_triggers;
    PressHandler m_handler;
    std::function<void()> m_notesChanged;
    QString m_session;
    bool m_started = false;
    bool m_available = true;
    uint m_version = 0;
};
