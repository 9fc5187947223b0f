#pragma once

#include "Export/CopyTargets.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <cstdint>

struct xcb_connection_t;

// Ctrl+V for the window the user was typing in, sent with XTest. The target
// is noted before the picker takes the keyboard; on paste it gets the focus
// back, and the keys are sent once the user has let go of the shortcut's
// modifiers (a held Alt or Super would turn Ctrl+V into another shortcut).
class X11Paster : public QObject, public Paster {
    Q_OBJECT

public:
    // Waits this long at most for the modifiers to be released.
    static constexpr int releaseTimeoutMs = 1000;

    // Qt's own X connection; without one (another platform) nothing is sent.
    explicit X11Paster(QObject* parent = nullptr);

    void rememberTarget() override;
    bool isTrusted() const override;
    void paste() override;

    uint32_t target() const { return m_target; }

signals:
    // After the keys were sent (or the attempt given up).
    void pasted();

private:
    void restoreTarget();
    bool modifiersHeld() const;
    void sendPasteKeys();

    xcb_connection_t* m_connection = nullptr;
    bool m_hasXTest = false;
    uint32_t m_target = 0;       // had the input focus
    uint32_t m_activeWindow = 0; // the window manager's active window, if any
    uint32_t m_activeAtom = 0;
    QTimer m_poll;
    QElapsedTimer m_waiting;
};
