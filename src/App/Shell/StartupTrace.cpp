#include "StartupTrace.h"

#include <QFile>
#include <cstdio>

QElapsedTimer& StartupTrace::clock()
{
    static QElapsedTimer timer;
    return timer;
}

bool StartupTrace::enabled()
{
    static const bool on = qEnvironmentVariableIntValue("PICTRAY_TRACE_STARTUP") != 0;
    return on;
}

void StartupTrace::begin()
{
    clock().start();
}

void StartupTrace::mark(const char* step)
{
    if (!enabled() || !clock().isValid())
        return;
    const double ms = double(clock().nsecsElapsed()) / 1e6;
    std::fprintf(stderr, "pictray: startup %.1f ms  %s  %s\n", ms, residentMemory().constData(),
                 step);
    std::fflush(stderr);
}

QByteArray StartupTrace::residentMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return "rss unknown";
    QByteArray total = "?";
    QByteArray anonymous = "?";
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            total = line.mid(6).trimmed().split(' ').value(0);
        else if (line.startsWith("RssAnon:"))
            anonymous = line.mid(8).trimmed().split(' ').value(0);
    }
    return "rss " + total + " kB (anon " + anonymous + " kB)";
}
