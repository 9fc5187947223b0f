#pragma once

#include "Base/KeyCombo.h"

#include <QString>
#include <functional>

// What a windowing system must offer for global hot keys: make a key
// combination system-wide under a number, withdraw it, and report presses by
// that number.
class HotKeyBackend {
public:
    using PressHandler = std::function<void(quint32 number)>;

    virtual ~HotKeyBackend() = default;

    // Called once, before the first registration.
    virtual void installHandler(PressHandler handler) = 0;
    // False when the system refuses the combination (another application holds
    // it); then nothing of it is live.
    virtual bool registerHotKey(quint32 number, const KeyCombo& combo) = 0;
    virtual void unregisterHotKey(quint32 number) = 0;

    // What the desktop says about a hot key where it owns the keys (Wayland):
    // the key it bound, or how to bind the matching command; empty elsewhere.
    virtual QString desktopNote(quint32 /*number*/) const { return QString(); }
    // Called whenever the notes change; once, before the first registration.
    virtual void installNotesHandler(const std::function<void()>& /*changed*/) {}
    // Whether the desktop decides the keys, so that recording one in Pictray
    // would change nothing.
    virtual bool desktopOwnsKeys() const { return false; }
    // Whether the desktop offers its own dialog for Pictray's shortcuts, and
    // opening it.
    virtual bool canConfigureOnDesktop() const { return false; }
    virtual void configureOnDesktop() {}
};
