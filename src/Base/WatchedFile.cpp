#include "WatchedFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <utility>

WatchedFile::WatchedFile(const QString& path, QObject* parent)
    : QObject(parent), m_path(QFileInfo(path).absoluteFilePath())
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(defaultSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &WatchedFile::settled);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        m_fileEvent = true;
        watchFile();
        m_settle.start();
    });
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        watchFile();
        m_settle.start();
    });
    // Without its folder nothing can be noticed, so the folder is made.
    const QString folder = QFileInfo(m_path).absolutePath();
    QDir().mkpath(folder);
    m_watcher.addPath(folder);
    watchFile();
    m_seen = stamp();
}

WatchedFile::Stamp WatchedFile::stamp() const
{
    const QFileInfo file(m_path);
    if (!file.exists())
        return {};
    return {true, file.size(), file.lastModified().toMSecsSinceEpoch()};
}

void WatchedFile::watchFile()
{
    if (!m_watcher.files().contains(m_path) && QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
}

void WatchedFile::settled()
{
    const Stamp now = stamp();
    if (!std::exchange(m_fileEvent, false) && now == m_seen)
        return;
    m_seen = now;
    emit changed();
}
