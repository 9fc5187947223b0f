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
    std::fprintf(stderr, "pictray: startup %.1f ms  rss %lld kB  %s\n", ms,
                 static_cast<long long>(residentKB()), step);
    std::fflush(stderr);
}

qint64 StartupTrace::residentKB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLongLong();
    }
    return -1;
}
