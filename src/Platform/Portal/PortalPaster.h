#pragma once

#include "Export/CopyTargets.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

class SettingsStore;

// Ctrl+V for the front application through the desktop portal's
// RemoteDesktop interface, for sessions without synthetic input of their
// own (Wayland). The desktop asks the user once; the restore token it gives
// back is kept in the settings, so later sessions start without a dialog.
// A session is opened for a paste and closed again after a quiet minute,
// since desktops show an indicator while one runs.
class PortalPaster final : public QObject, public Paster {
    Q_OBJECT

public:
    static constexpr int idleCloseMs = 60'000;

    PortalPaster(QDBusConnection bus, SettingsStore& store, QObject* parent = nullptr);
    ~PortalPaster() override;

    // Where the settings keep the token that restores the user's consent.
    static QString restoreTokenKey();

    // The compositor gives the keyboard back to the window the panel came
    // from; there is nothing to note.
    void rememberTarget() override {}
    // Until the user refused, or the desktop turned out to have no keyboard
    // to lend.
    bool isTrusted() const override;
    // Starts a session first when none runs; the keys follow the consent.
    void paste() override;
    QString note() const override;
    void installNoteHandler(const std::function<void()>& changed) override;

private slots:
    void sessionClosed(const QVariantMap& details);

private:
    enum class Consent { notAsked, granted, declined, unavailable };
    enum class SessionState { none, starting, started };

    void checkAvailability();
    void createSession();
    void selectDevices();
    void startSession();
    void sendPasteKeys();
    void closeSession();
    void dropSession();
    void setConsent(Consent consent);

    QDBusConnection m_bus;
    SettingsStore& m_store;
    Consent m_consent = Consent::notAsked;
    SessionState m_state = SessionState::none;
    QString m_session;
    bool m_pastePending = false;
    QTimer m_idle;
    std::function<void()> m_noteChanged;
};
