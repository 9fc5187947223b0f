#include "X11HotKeyBackend.h"

#include "Base/VirtualKeys.h"
#include "Xcb.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>

namespace {

constexpr xcb_keysym_t numLockKeysym = 0xff7f;
// XKB event kinds (the byte after the event code) that announce a new keymap.
constexpr quint8 xkbNewKeyboardNotify = 0;
constexpr quint8 xkbMapNotify = 1;

// Control = Control, Option = Alt (Mod1), Shift = Shift, Command = Super (Mod4).
quint16 xModifiers(quint64 modifiers)
{
    quint16 mask = 0;
    if (modifiers & KeyCombo::controlFlag)
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers & KeyCombo::optionFlag)
        mask |= XCB_MOD_MASK_1;
    if (modifiers & KeyCombo::shiftFlag)
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers & KeyCombo::commandFlag)
        mask |= XCB_MOD_MASK_4;
    return mask;
}

quint16 findNumLockMask(xcb_connection_t* connection)
{
    const auto modifierCookie = xcb_get_modifier_mapping(connection);
    const Xcb::KeyboardMapping keyboard(connection);
    const Xcb::Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifierCookie, nullptr));
    if (!modifiers)
        return 0;
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const int perModifier = modifiers->keycodes_per_modifier;
    for (int modifier = 0; modifier < 8; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            if (keyboard.producesKeysym(keycodes[modifier * perModifier + i], numLockKeysym))
                return quint16(1u << modifier);
        }
    }
    return 0;
}

} // namespace

std::unique_ptr<X11HotKeyBackend> X11HotKeyBackend::create()
{
    xcb_connection_t* connection = Xcb::qtConnection();
    return connection ? std::make_unique<X11HotKeyBackend>(connection) : nullptr;
}

X11HotKeyBackend::X11HotKeyBackend(xcb_connection_t* connection) : m_connection(connection)
{
    for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection)); screens.rem;
         xcb_screen_next(&screens)) {
        m_roots.push_back(screens.data->root);
    }
    static constexpr char xkbName[] = "XKEYBOARD";
    const Xcb::Reply<xcb_query_extension_reply_t> xkb(xcb_query_extension_reply(
        connection, xcb_query_extension(connection, std::strlen(xkbName), xkbName), nullptr));
    if (xkb && xkb->present)
        m_xkbFirstEvent = xkb->first_event;
    m_numLockMask = findNumLockMask(connection);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11HotKeyBackend::~X11HotKeyBackend()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
    for (const auto& [number, grabbed] : m_grabs)
        ungrab(grabbed);
    xcb_flush(m_connection);
}

void X11HotKeyBackend::installHandler(PressHandler handler)
{
    m_handler = std::move(handler);
}

bool X11HotKeyBackend::registerHotKey(quint32 number, const KeyCombo& combo)
{
    unregisterHotKey(number);
    const auto keycode = VirtualKeys::xkbKeycode(combo.keyCode);
    if (!keycode || *keycode > 255)
        return false;
    const Grab wanted{quint8(*keycode), xModifiers(combo.modifiers)};
    // One grab serves one hot key: X would silently let the second replace it.
    for (const auto& [other, grabbed] : m_grabs) {
        if (grabbed == wanted)
            return false;
    }
    if (!grab(wanted))
        return false;
    m_grabs[number] = wanted;
    return true;
}

void X11HotKeyBackend::unregisterHotKey(quint32 number)
{
    const auto found = m_grabs.find(number);
    if (found == m_grabs.end())
        return;
    ungrab(found->second);
    xcb_flush(m_connection);
    m_grabs.erase(found);
}

std::vector<quint16> X11HotKeyBackend::lockVariants() const
{
    std::vector<quint16> variants{0, XCB_MOD_MASK_LOCK};
    if (m_numLockMask != 0) {
        variants.push_back(m_numLockMask);
        variants.push_back(m_numLockMask | XCB_MOD_MASK_LOCK);
    }
    return variants;
}

// All variants on all roots, or none: the server answers each request on its
// own, and a refused one (BadAccess: another client holds it) has no effect.
bool X11HotKeyBackend::grab(const Grab& grab)
{
    struct Request {
        xcb_window_t root;
        quint16 modifiers;
        xcb_void_cookie_t cookie;
    };
    std::vector<Request> requests;
    for (const xcb_window_t root : m_roots) {
        for (const quint16 variant : lockVariants()) {
            const quint16 modifiers = grab.modifiers | variant;
            requests.push_back(
                {root, modifiers,
                 xcb_grab_key_checked(m_connection, false, root, modifiers, grab.keycode,
                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)});
        }
    }
    bool refused = false;
    std::vector<Request> granted;
    for (const Request& request : requests) {
        if (Xcb::succeeded(m_connection, request.cookie))
            granted.push_back(request);
        else
            refused = true;
    }
    if (!refused)
        return true;
    for (const Request& request : granted)
        xcb_ungrab_key(m_connection, grab.keycode, request.root, request.modifiers);
    xcb_flush(m_connection);
    return false;
}

void X11HotKeyBackend::ungrab(const Grab& grab)
{
    for (const xcb_window_t root : m_roots) {
        for (const quint16 variant : lockVariants())
            xcb_ungrab_key(m_connection, grab.keycode, root, grab.modifiers | variant);
    }
}

// Key codes name physical keys and stay; what a new mapping can move is the
// modifier NumLock sets, so the grabs' NumLock variants follow it.
void X11HotKeyBackend::followMappingChange()
{
    const quint16 numLockMask = findNumLockMask(m_connection);
    if (numLockMask == m_numLockMask)
        return;
    for (const auto& [number, grabbed] : m_grabs)
        ungrab(grabbed);
    m_numLockMask = numLockMask;
    // Best effort: a variant taken meanwhile by another client stays missing.
    for (const auto& [number, grabbed] : m_grabs)
        grab(grabbed);
    xcb_flush(m_connection);
}

bool X11HotKeyBackend::isMappingChange(quint8 responseType, const void* event) const
{
    if (responseType == XCB_MAPPING_NOTIFY)
        return true;
    // Clients that follow XKB (Qt does) get XKB's notices instead of the core one.
    if (m_xkbFirstEvent == 0 || responseType != m_xkbFirstEvent)
        return false;
    const quint8 xkbType = static_cast<const xcb_generic_event_t*>(event)->pad0;
    return xkbType == xkbMapNotify || xkbType == xkbNewKeyboardNotify;
}

bool X11HotKeyBackend::handleKeyPress(const void* event)
{
    const auto* press = static_cast<const xcb_key_press_event_t*>(event);
    if (std::find(m_roots.begin(), m_roots.end(), press->event) == m_roots.end())
        return false;
    const quint16 held = press->state & 0xff & ~(m_numLockMask | XCB_MOD_MASK_LOCK);
    const auto found = std::find_if(m_grabs.begin(), m_grabs.end(), [&](const auto& entry) {
        return entry.second.keycode == press->detail && entry.second.modifiers == held;
    });
    if (found == m_grabs.end())
        return false;
    // Holding the keys fires once: auto-repeat's press comes with a release of
    // the same key stamped the same millisecond (or the next).
    const bool repeat =
        press->detail == m_releasedKeycode && quint32(press->time - m_releaseTime) <= 1;
    if (!repeat && m_handler)
        m_handler(found->first);
    return true;
}

bool X11HotKeyBackend::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const quint8 responseType = event->response_type & 0x7f;
    switch (responseType) {
    case XCB_KEY_PRESS:
        return handleKeyPress(event);
    case XCB_KEY_RELEASE: {
        const auto* release = reinterpret_cast<const xcb_key_release_event_t*>(event);
        if (std::find(m_roots.begin(), m_roots.end(), release->event) != m_roots.end()) {
            m_releasedKeycode = release->detail;
            m_releaseTime = release->time;
        }
        return false;
    }
    default:
        if (isMappingChange(responseType, event))
            followMappingChange();
        return false;
    }
}
