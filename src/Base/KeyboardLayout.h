#pragma once

#include <QString>
#include <memory>
#include <optional>

// What the keys of a keyboard layout type, for naming shortcut keys. The
// platform layer supplies the real one (Platform/Xkb).
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    // The text the key at a virtual key code's place types with no modifier
    // held; a dead key gives its accent. Empty when the key types nothing
    // printable or the code has no physical key.
    virtual QString keyText(quint32 virtualKeyCode) const = 0;

    // The virtual key code of the physical key behind a native scan code, as
    // the platform's key events carry it; none when the layout cannot tell.
    virtual std::optional<quint32> virtualKeyCode(quint32 /*nativeScanCode*/) const
    {
        return std::nullopt;
    }

    // The layout the program names keys with: the one the platform installed
    // at start-up, else null (keys that type text are then named "?").
    static std::shared_ptr<const KeyboardLayout> current();
    static void setCurrent(std::shared_ptr<const KeyboardLayout> layout);
};
