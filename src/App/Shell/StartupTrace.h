#pragma once

#include <QByteArray>
#include <QElapsedTimer>

// With PICTRAY_TRACE_STARTUP=1, start-up notes on stderr how long each step
// took since main() began and how much memory the process holds:
//   pictray: startup 12.3 ms  rss 41236 kB (anon 17020 kB)  tray icon shown
// Otherwise every call costs one branch.
class StartupTrace {
public:
    static void begin();
    static void mark(const char* step);
    static bool enabled();
    // The resident memory of this process from /proc, "rss 78536 kB (anon
    // 28080 kB)": all of it, and the part that is this process's alone rather
    // than pages of files it maps (libraries), which other processes share.
    static QByteArray residentMemory();

private:
    static QElapsedTimer& clock();
};
