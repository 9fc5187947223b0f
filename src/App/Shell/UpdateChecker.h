#pragma once

#include "Catalog/ReleaseCheck.h"

#include <QDateTime>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <functional>

class Preferences;

// The front of "Check for Updates…": asks the release feed and says whether a
// newer Pictray exists, with its notes and the download page; installing stays
// with the package manager. With automatic checks on, it also looks by itself,
// at most once a day and quietly unless there is news.
class UpdateChecker : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    explicit UpdateChecker(Preferences& preferences, Clock clock = {}, QObject* parent = nullptr);
    ~UpdateChecker() override;

    // The menu's check: now, whatever the schedule, with a window for the outcome.
    void checkForUpdates();
    // The automatic check, when switched on and the last one is a day old.
    void checkIfDue();
    // Runs checkIfDue() now and every hour.
    void startSchedule();

    static constexpr std::chrono::hours interval{24};
    // The store key of the last check's time.
    static QString lastCheckKey() { return QStringLiteral("lastUpdateCheck"); }

    bool isChecking() const { return m_check.isBusy(); }
    // The window of the last outcome shown; null when none is open.
    QMessageBox* dialog() const { return m_dialog; }

signals:
    void checked(const ReleaseCheck::Outcome& outcome);

private:
    void finished(const ReleaseCheck::Outcome& outcome);
    void show(const ReleaseCheck::Outcome& outcome);

    Preferences& m_preferences;
    Clock m_clock;
    ReleaseCheck m_check;
    QTimer m_schedule;
    bool m_userAsked = false;
    QPointer<QMessageBox> m_dialog;
};
