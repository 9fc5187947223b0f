#pragma once

// What the windowing session lets the program do with its windows, and what
// it tells about the tray.
struct WindowingSession {
    // The program puts its windows where it likes (X11). Elsewhere the
    // compositor places them, so the picker opens centred, without an arrow.
    bool placesWindows = false;
    // The tray reports its icon's frame, so the picker can hang from it.
    bool trayReportsGeometry = false;
    // The compositor takes a clipboard offer only from the client with the
    // keyboard (Wayland): copies made without a focused window need one.
    bool clipboardNeedsFocus = false;

    static constexpr WindowingSession x11() { return {true, true, false}; }
    static constexpr WindowingSession compositorPlaced() { return {false, false, false}; }
    static constexpr WindowingSession wayland() { return {false, false, true}; }

    friend bool operator==(const WindowingSession&, const WindowingSession&) = default;
};
