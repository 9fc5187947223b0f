#pragma once

// What the windowing session lets the program do with its windows, and what
// it tells about the tray.
struct WindowingSession {
    // The program puts its windows where it likes (X11). Elsewhere the
    // compositor places them, so the picker opens centred, without an arrow.
    bool placesWindows = false;
    // The tray reports its icon's frame, so the picker can hang from it.
    bool trayReportsGeometry = false;

    static constexpr WindowingSession x11() { return {true, true}; }
    static constexpr WindowingSession compositorPlaced() { return {false, false}; }

    friend bool operator==(const WindowingSession&, const WindowingSession&) = default;
};
