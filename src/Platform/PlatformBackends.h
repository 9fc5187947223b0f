#pragma once

#include <QString>
#include <memory>

class HotKeyBackend;
class KeyboardLayout;
class Paster;

// The platform's side of every concern that differs between windowing
// systems, chosen once at start-up from the Qt platform the program runs on.
struct PlatformBackends {
    std::unique_ptr<HotKeyBackend> hotKeys;
    std::unique_ptr<Paster> paster;
    std::shared_ptr<const KeyboardLayout> keyboardLayout;

    PlatformBackends();
    PlatformBackends(PlatformBackends&&) noexcept;
    PlatformBackends& operator=(PlatformBackends&&) noexcept;
    ~PlatformBackends();

    // "xcb": X11 grabs, XTest paste and the server's keyboard layout. Any
    // other platform: no global grabs, no paste, the environment's keymap.
    static PlatformBackends forPlatform(const QString& platformName);
    // Null backends that do nothing: for tests.
    static PlatformBackends null();
};
