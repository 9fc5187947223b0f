#pragma once

#include <QElapsedTimer>

// With PICTRAY_TRACE_STARTUP=1, start-up notes on stderr how long each step
// took since main() began and how much memory the process holds:
//   pictray: startup 12.3 ms  rss 41236 kB  tray icon shown
// Otherwise every call costs one branch.
class StartupTrace {
public:
    static void begin();
    static void mark(const char* step);
    static bool enabled();
    // VmRSS of this process in kB; -1 when /proc cannot tell.
    static qint64 residentKB();

private:
    static QElapsedTimer& clock();
};
