#include "X11Paster.h"

#include <QGuiApplication>
#include <cstdlib>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

constexpr xcb_keysym_t controlLeftKeysym = 0xffe3;
constexpr xcb_keysym_t vKeysym = 0x0076;
constexpr int pollIntervalMs = 15;

template <typename T> struct Reply {
    T* value;
    explicit Reply(T* reply) : value(reply) {}
    ~Reply() { std::free(value); }
    Reply(const Reply&) = delete;
    Reply& operator=(const Reply&) = delete;
    T* operator->() const { return value; }
    explicit operator bool() const { return value != nullptr; }
};

// The first keycode that produces the keysym in any column; 0 when none does.
xcb_keycode_t keycodeFor(xcb_connection_t* connection, xcb_keysym_t keysym)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const Reply mapping(xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr));
    if (!mapping || mapping->keysyms_per_keycode == 0)
        return 0;
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(mapping.value);
    const int length = xcb_get_keyboard_mapping_keysyms_length(mapping.value);
    const int perKeycode = mapping->keysyms_per_keycode;
    for (int i = 0; i < length; ++i) {
        if (keysyms[i] == keysym)
            return static_cast<xcb_keycode_t>(setup->min_keycode + i / perKeycode);
    }
    return 0;
}

void fakeKey(xcb_connection_t* connection, uint8_t type, xcb_keycode_t keycode)
{
    xcb_test_fake_input(connection, type, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

} // namespace

X11Paster::X11Paster(QObject* parent) : QObject(parent)
{
    if (QGuiApplication::platformName() == u"xcb") {
        if (auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
            m_connection = x11->connection();
    }
    if (m_connection) {
        const xcb_query_extension_reply_t* xtest =
            xcb_get_extension_data(m_connection, &xcb_test_id);
        m_hasXTest = xtest && xtest->present;
    }
    m_poll.setInterval(pollIntervalMs);
    connect(&m_poll, &QTimer::timeout, this, [this] {
        if (!modifiersHeld() || m_waiting.hasExpired(releaseTimeoutMs)) {
            m_poll.stop();
            sendPasteKeys();
        }
    });
}

void X11Paster::rememberTarget()
{
    m_target = 0;
    if (!m_connection)
        return;
    const Reply focus(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    // PointerRoot and None name no window to come back to.
    if (focus && focus->focus != XCB_NONE && focus->focus != XCB_INPUT_FOCUS_POINTER_ROOT)
        m_target = focus->focus;
}

bool X11Paster::isTrusted() const
{
    return m_connection && m_hasXTest;
}

void X11Paster::paste()
{
    if (!isTrusted())
        return;
    if (m_target != 0) {
        const uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, m_target, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        // The target may have gone since it was noted; that error is harmless.
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_target, XCB_CURRENT_TIME);
        xcb_flush(m_connection);
    }
    m_waiting.start();
    if (modifiersHeld())
        m_poll.start();
    else
        sendPasteKeys();
}

bool X11Paster::modifiersHeld() const
{
    const Reply modifiers(xcb_get_modifier_mapping_reply(
        m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const Reply keymap(
        xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr));
    if (!modifiers || !keymap)
        return false;
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(modifiers.value);
    const int perModifier = modifiers->keycodes_per_modifier;
    // Rows of the modifier map: Shift, Lock, Control, Mod1 (Alt) ... Mod4 (Super).
    for (const int row : {0, 2, 3, 6}) {
        for (int i = 0; i < perModifier; ++i) {
            const xcb_keycode_t keycode = keycodes[row * perModifier + i];
            if (keycode != 0 && (keymap->keys[keycode / 8] & (1 << (keycode % 8))))
                return true;
        }
    }
    return false;
}

void X11Paster::sendPasteKeys()
{
    const xcb_keycode_t control = keycodeFor(m_connection, controlLeftKeysym);
    const xcb_keycode_t v = keycodeFor(m_connection, vKeysym);
    if (control != 0 && v != 0) {
        fakeKey(m_connection, XCB_KEY_PRESS, control);
        fakeKey(m_connection, XCB_KEY_PRESS, v);
        fakeKey(m_connection, XCB_KEY_RELEASE, v);
        fakeKey(m_connection, XCB_KEY_RELEASE, control);
        xcb_flush(m_connection);
    }
    emit pasted();
}
