#pragma once

#include <QtGlobal>
#include <optional>

// Stored shortcuts use the Mac's virtual key codes on every platform, so a
// settings file means the same key everywhere. These map a virtual key code to
// the physical key at its place on a US ANSI keyboard, named by its Linux input
// (evdev) code; an X or xkb keycode is the evdev code plus 8.
namespace VirtualKeys {

std::optional<quint32> evdevCode(quint32 virtualKeyCode);
std::optional<quint32> virtualKeyCode(quint32 evdevCode);

inline std::optional<quint32> xkbKeycode(quint32 virtualKeyCode)
{
    const auto code = evdevCode(virtualKeyCode);
    return code ? std::optional(*code + 8) : std::nullopt;
}

} // namespace VirtualKeys
