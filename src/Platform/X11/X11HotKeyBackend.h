#pragma once

#include "Platform/HotKeyBackend.h"

#include <QAbstractNativeEventFilter>
#include <map>
#include <vector>

struct xcb_connection_t;

// Hot keys as passive key grabs on the X root windows, through Qt's own xcb
// connection. Each combination is grabbed also with NumLock and CapsLock on,
// since X matches modifiers exactly; presses arrive as native events.
class X11HotKeyBackend final : public HotKeyBackend, public QAbstractNativeEventFilter {
public:
    // Null unless the application runs on the xcb platform.
    static std::unique_ptr<X11HotKeyBackend> create();

    explicit X11HotKeyBackend(xcb_connection_t* connection);
    ~X11HotKeyBackend() override;
    X11HotKeyBackend(const X11HotKeyBackend&) = delete;
    X11HotKeyBackend& operator=(const X11HotKeyBackend&) = delete;

    void installHandler(PressHandler handler) override;
    bool registerHotKey(quint32 number, const KeyCombo& combo) override;
    void unregisterHotKey(quint32 number) override;

    // The modifier bit the NumLock key sets in the current modifier mapping;
    // 0 when no modifier carries it.
    quint16 numLockMask() const { return m_numLockMask; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    struct Grab {
        quint8 keycode = 0;
        quint16 modifiers = 0;
        friend bool operator==(const Grab&, const Grab&) = default;
    };

    std::vector<quint16> lockVariants() const;
    bool grab(const Grab& grab);
    void ungrab(const Grab& grab);
    void followMappingChange();
    bool isMappingChange(quint8 responseType, const void* event) const;
    bool handleKeyPress(const void* event);

    xcb_connection_t* m_connection;
    std::vector<quint32> m_roots;
    quint8 m_xkbFirstEvent = 0;
    quint16 m_numLockMask = 0;
    std::map<quint32, Grab> m_grabs;
    PressHandler m_handler;
    // The last key release on a root window: X auto-repeat sends a release
    // and a press of the held key at the same moment.
    quint8 m_releasedKeycode = 0;
    quint32 m_releaseTime = 0;
};
