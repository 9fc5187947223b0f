#include "X11Paster.h"

#include "Xcb.h"

#include <cstring>
#include <xcb/xtest.h>

namespace {

constexpr xcb_keysym_t controlLeftKeysym = 0xffe3;
constexpr xcb_keysym_t vKeysym = 0x0076;
constexpr int pollIntervalMs = 15;

xcb_atom_t internAtom(xcb_connection_t* connection, const char* name)
{
    const Xcb::Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr));
    return atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t rootWindow(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

void fakeKey(xcb_connection_t* connection, uint8_t type, xcb_keycode_t keycode)
{
    xcb_test_fake_input(connection, type, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

} // namespace

X11Paster::X11Paster(QObject* parent) : QObject(parent)
{
    m_connection = Xcb::qtConnection();
    if (m_connection) {
        const xcb_query_extension_reply_t* xtest =
            xcb_get_extension_data(m_connection, &xcb_test_id);
        m_hasXTest = xtest && xtest->present;
        m_activeAtom = internAtom(m_connection, "_NET_ACTIVE_WINDOW");
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
    m_activeWindow = 0;
    if (!m_connection)
        return;
    // A window manager knows the active top-level window; the input focus may
    // sit on one of its children.
    if (m_activeAtom != XCB_ATOM_NONE) {
        const Xcb::Reply<xcb_get_property_reply_t> active(
            xcb_get_property_reply(m_connection,
                                   xcb_get_property(m_connection, 0, rootWindow(m_connection),
                                                    m_activeAtom, XCB_ATOM_WINDOW, 0, 1),
                                   nullptr));
        if (active && active->type == XCB_ATOM_WINDOW && active->format == 32 &&
            xcb_get_property_value_length(active.get()) == 4)
            m_activeWindow =
                *static_cast<const xcb_window_t*>(xcb_get_property_value(active.get()));
    }
    const Xcb::Reply<xcb_get_input_focus_reply_t> focus(
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
    restoreTarget();
    m_waiting.start();
    if (modifiersHeld())
        m_poll.start();
    else
        sendPasteKeys();
}

void X11Paster::restoreTarget()
{
    if (m_activeWindow != 0) {
        // Ask the window manager to activate and raise it, as a pager would (source 2).
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_activeWindow;
        message.type = m_activeAtom;
        message.data.data32[0] = 2;
        message.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(m_connection, 0, rootWindow(m_connection),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
    }
    if (m_target != 0) {
        // A window that was closed or unmapped since cannot take the focus.
        const Xcb::Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(
                m_connection, xcb_get_window_attributes(m_connection, m_target), nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_target, XCB_CURRENT_TIME);
    }
    xcb_flush(m_connection);
}

bool X11Paster::modifiersHeld() const
{
    const Xcb::Reply<xcb_get_modifier_mapping_reply_t> modifiers(xcb_get_modifier_mapping_reply(
        m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const Xcb::Reply<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr));
    if (!modifiers || !keymap)
        return false;
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
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
    const Xcb::KeyboardMapping mapping(m_connection);
    const xcb_keycode_t control = mapping.keycodeFor(controlLeftKeysym);
    const xcb_keycode_t v = mapping.keycodeFor(vKeysym);
    if (control != 0 && v != 0) {
        fakeKey(m_connection, XCB_KEY_PRESS, control);
        fakeKey(m_connection, XCB_KEY_PRESS, v);
        fakeKey(m_connection, XCB_KEY_RELEASE, v);
        fakeKey(m_connection, XCB_KEY_RELEASE, control);
        xcb_flush(m_connection);
    }
    emit pasted();
}
