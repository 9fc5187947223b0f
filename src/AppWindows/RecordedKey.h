#pragma once

#include "Base/KeyCombo.h"

#include <QtGlobal>
#include <optional>

// A key press as the shortcut recorder sees it, in the stored encoding of
// KeyCombo: the virtual key code of the physical key and the four modifier
// flags (Ctrl = Control, Alt = Option, Super = Command).
namespace RecordedKey {

// The layout names the physical key from its scan code where it can; else
// the key is found by what it types on a US keyboard. Nothing for a modifier
// key on its own or a key without a place.
std::optional<quint32> virtualKeyCode(int qtKey, quint32 nativeScanCode);
quint64 modifierFlags(Qt::KeyboardModifiers modifiers);

inline constexpr quint32 escapeKeyCode = 53;
inline constexpr quint32 deleteKeyCode = 51;
inline constexpr quint32 forwardDeleteKeyCode = 117;

} // namespace RecordedKey
