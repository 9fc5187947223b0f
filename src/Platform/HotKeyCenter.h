#pragma once

#include "Base/KeyCombo.h"

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

class HotKeyBackend;

// The single owner of the system-wide hot keys. Per hot key the states are:
// off (no combination), wanted and live, or wanted but not live (the system
// refused it, or the center is suspended while a shortcut is being recorded).
class HotKeyCenter : public QObject {
    Q_OBJECT

public:
    // The hot key number of each case is its position plus one.
    enum class ID : quint32 { picker = 1, copyLast = 2 };
    Q_ENUM(ID)

    explicit HotKeyCenter(std::unique_ptr<HotKeyBackend> backend, QObject* parent = nullptr);
    ~HotKeyCenter() override;

    // (Re)binds id to a combination and an action; no combination turns the
    // hot key off and returns true. While suspended the combination is only
    // stored. Otherwise returns whether the system accepted it; on refusal the
    // action and the wanted combination stay stored, so resume() tries again.
    // (Named for what it does: `register` is a C++ keyword.)
    bool registerHotKey(ID id, std::optional<KeyCombo> combo, std::function<void()> action);
    // Withdraws id's live registration, keeping its action and combination.
    void unregister(ID id);
    // Withdraws every live registration without forgetting it.
    void suspend();
    // Registers every wanted combination again; refusals are skipped.
    void resume();
    // Wanted, not suspended, yet not live: the system refused the combination.
    bool isRefused(ID id) const;
    // Where the desktop owns the keys: what it says about id (the backend's note).
    QString desktopNote(ID id) const;
    bool desktopOwnsKeys() const;
    bool canConfigureOnDesktop() const;
    // Opens the desktop's own settings of Pictray's shortcuts.
    void configureOnDesktop();

signals:
    // After a registration, a suspension or a resumption, and when the
    // desktop's notes change.
    void registrationsChanged();

private:
    void installHandler();
    void handlePress(quint32 number);
    bool makeLive(quint32 number, const KeyCombo& combo);

    std::unique_ptr<HotKeyBackend> m_backend;
    std::set<quint32> m_live;
    std::map<quint32, std::function<void()>> m_actions;
    std::map<quint32, KeyCombo> m_combos;
    bool m_handlerInstalled = false;
    bool m_isSuspended = false;
};
