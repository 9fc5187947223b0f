#pragma once

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

// What the X11 backends share about talking to the server through Qt's own
// xcb connection.
namespace Xcb {

// Qt's connection; null unless the application runs on the xcb platform.
xcb_connection_t* qtConnection();

// Replies and errors are malloc'ed by xcb and belong to the caller.
struct FreeDeleter {
    void operator()(void* pointer) const { std::free(pointer); }
};
template <typename T> using Reply = std::unique_ptr<T, FreeDeleter>;

// Waits for a checked request; true when the server granted it.
bool succeeded(xcb_connection_t* connection, xcb_void_cookie_t cookie);

// The server's keycode-to-keysym table, read once.
class KeyboardMapping {
public:
    explicit KeyboardMapping(xcb_connection_t* connection);

    bool producesKeysym(xcb_keycode_t keycode, xcb_keysym_t keysym) const;
    // The first keycode that produces the keysym at any level; 0 when none does.
    xcb_keycode_t keycodeFor(xcb_keysym_t keysym) const;

private:
    xcb_keycode_t m_minKeycode = 0;
    Reply<xcb_get_keyboard_mapping_reply_t> m_reply;
};

} // namespace Xcb
