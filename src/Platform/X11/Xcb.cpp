#include "Xcb.h"

#include <QGuiApplication>
#include <algorithm>

namespace Xcb {

xcb_connection_t* qtConnection()
{
    if (!qGuiApp || QGuiApplication::platformName() != u"xcb")
        return nullptr;
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

bool succeeded(xcb_connection_t* connection, xcb_void_cookie_t cookie)
{
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
    return !error;
}

KeyboardMapping::KeyboardMapping(xcb_connection_t* connection)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    m_minKeycode = setup->min_keycode;
    const auto cookie = xcb_get_keyboard_mapping(connection, setup->min_keycode,
                                                 setup->max_keycode - setup->min_keycode + 1);
    m_reply.reset(xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    if (m_reply && m_reply->keysyms_per_keycode == 0)
        m_reply.reset();
}

bool KeyboardMapping::producesKeysym(xcb_keycode_t keycode, xcb_keysym_t keysym) const
{
    if (!m_reply || keycode < m_minKeycode)
        return false;
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(m_reply.get());
    const int count = xcb_get_keyboard_mapping_keysyms_length(m_reply.get());
    const int perKeycode = m_reply->keysyms_per_keycode;
    const int first = (keycode - m_minKeycode) * perKeycode;
    if (first + perKeycode > count)
        return false;
    return std::find(keysyms + first, keysyms + first + perKeycode, keysym) !=
           keysyms + first + perKeycode;
}

xcb_keycode_t KeyboardMapping::keycodeFor(xcb_keysym_t keysym) const
{
    if (!m_reply)
        return 0;
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(m_reply.get());
    const int count = xcb_get_keyboard_mapping_keysyms_length(m_reply.get());
    const xcb_keysym_t* found = std::find(keysyms, keysyms + count, keysym);
    if (found == keysyms + count)
        return 0;
    return static_cast<xcb_keycode_t>(m_minKeycode +
                                      (found - keysyms) / m_reply->keysyms_per_keycode);
}

} // namespace Xcb
