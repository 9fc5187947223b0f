#pragma once

#include <QString>
#include <memory>

// What the keys of a keyboard layout type, for naming shortcut keys.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    // The text the key at a virtual key code's place types with no modifier
    // held; a dead key gives its accent. Empty when the key types nothing
    // printable or the code has no physical key.
    virtual QString keyText(quint32 virtualKeyCode) const = 0;

    // The layout in use: the X server's (following its active group) when the
    // program runs on X11, else the environment's default keymap (the
    // XKB_DEFAULT_* variables, else the system's). Null when xkb has none.
    // The keymap is read once per run.
    static std::shared_ptr<const KeyboardLayout> current();

    // A named xkb layout such as "us" or "de"; null when it does not compile.
    static std::unique_ptr<KeyboardLayout> fromNames(const QString& layout,
                                                     const QString& variant = QString());
};
