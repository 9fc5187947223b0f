#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

// Whether a StatusNotifier tray is on the session bus: the watcher service
// with a host registered (Qt makes StatusNotifierItems only then). Follows
// the watcher as it comes and goes, so a tray that starts after Pictray
// (a panel started later at login) is noticed.
class StatusNotifierWatch : public QObject {
    Q_OBJECT

public:
    // On the session bus.
    explicit StatusNotifierWatch(QObject* parent = nullptr);
    explicit StatusNotifierWatch(QDBusConnection bus, QObject* parent = nullptr);
    ~StatusNotifierWatch() override;

    bool isPresent() const { return m_present; }

signals:
    void presenceChanged();

private slots:
    void hostRegistered();

private:
    void check();
    void setPresent(bool present);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    bool m_present = false;
};
