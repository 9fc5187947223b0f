#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>

// Reports changes to one file, whoever makes them. Atomic writers replace the
// file with a new one, which ends a watch on the old; the folder is watched
// too and the file watched again whenever it reappears. Bursts of events (a
// writer's temporary file, its rename, the time stamp set after) come out as
// one changed() once the file has been quiet for the settle time. Changes to
// the folder's other files, which leave this one as it was, are not reported.
class WatchedFile : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds defaultSettleTime{150};

    explicit WatchedFile(const QString& path, QObject* parent = nullptr);
    QString path() const { return m_path; }
    void setSettleTime(std::chrono::milliseconds settle) { m_settle.setInterval(settle); }

signals:
    void changed();

private:
    // What tells one version of the file from the next.
    struct Stamp {
        bool exists = false;
        qint64 size = 0;
        qint64 modified = 0;
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    Stamp stamp() const;
    void watchFile();
    void settled();

    QString m_path;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    Stamp m_seen;
    bool m_fileEvent = false;
};
