#pragma once

#include "Base/KeyboardLayout.h"

#include <memory>

struct xcb_connection_t;

// Keyboard layouts read through xkbcommon.
namespace XkbKeyboardLayout {

// The X server's layout, following its active group; null when the server
// has no XKB extension.
std::unique_ptr<KeyboardLayout> fromX11Server(xcb_connection_t* connection);
// The environment's default keymap (the XKB_DEFAULT_* variables, else the
// system's), for sessions whose compositor does not share its own.
std::unique_ptr<KeyboardLayout> fromEnvironment();
// A named xkb layout such as "us" or "de"; null when it does not compile.
std::unique_ptr<KeyboardLayout> fromNames(const QString& layout,
                                          const QString& variant = QString());

// The keysym name ("i", "Return", "F5") of the key at a virtual key code's
// place in the environment's default keymap, with no modifier; empty for an
// unknown key.
QString keysymName(quint32 virtualKeyCode);

} // namespace XkbKeyboardLayout
