#include "UpdateChecker.h"

#include "Base/AppConfig.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"

#include <QDesktopServices>
#include <QPushButton>
#include <utility>

UpdateChecker::UpdateChecker(Preferences& preferences, Clock clock, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_clock(std::move(clock))
{
    if (!m_clock)
        m_clock = [] { return QDateTime::currentDateTimeUtc(); };
    m_schedule.setInterval(std::chrono::hours(1));
    connect(&m_schedule, &QTimer::timeout, this, &UpdateChecker::checkIfDue);
    connect(&m_check, &ReleaseCheck::finished, this, &UpdateChecker::finished);
    connect(&m_preferences, &Preferences::automaticallyChecksForUpdatesChanged, this,
            &UpdateChecker::checkIfDue);
}

UpdateChecker::~UpdateChecker()
{
    delete m_dialog;
}

void UpdateChecker::startSchedule()
{
    m_schedule.start();
    checkIfDue();
}

void UpdateChecker::checkForUpdates()
{
    m_userAsked = true;
    m_check.start(AppConfig::releaseFeedURL(), AppConfig::version());
}

void UpdateChecker::checkIfDue()
{
    if (!m_preferences.automaticallyChecksForUpdates() || m_check.isBusy())
        return;
    SettingsStore& store = m_preferences.store();
    const QDateTime last =
        QDateTime::fromString(store.stringValue(lastCheckKey()).value_or(QString()), Qt::ISODate);
    const QDateTime now = m_clock();
    // A last check in the future (the clock was set back) does not hold the next one off.
    if (last.isValid() && last <= now &&
        last.msecsTo(now) < std::chrono::milliseconds(interval).count())
        return;
    // Noted before asking: a feed that fails is not asked again within the day.
    store.setString(lastCheckKey(), now.toString(Qt::ISODate));
    m_check.start(AppConfig::releaseFeedURL(), AppConfig::version());
}

void UpdateChecker::finished(const ReleaseCheck::Outcome& outcome)
{
    emit checked(outcome);
    // A check of its own accord speaks only of news.
    if (std::exchange(m_userAsked, false) || outcome.kind == ReleaseCheck::Outcome::Kind::newer)
        show(outcome);
}

void UpdateChecker::show(const ReleaseCheck::Outcome& outcome)
{
    delete m_dialog;
    m_dialog = new QMessageBox(QMessageBox::Information, QStringLiteral("Check for Updates"), {});
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    using Kind = ReleaseCheck::Outcome::Kind;
    switch (outcome.kind) {
    case Kind::upToDate:
        m_dialog->setText(QStringLiteral("You're up to date."));
        m_dialog->setInformativeText(
            QStringLiteral("Pictray %1 is the newest version.").arg(AppConfig::version()));
        break;
    case Kind::failed:
        m_dialog->setIcon(QMessageBox::Warning);
        m_dialog->setText(QStringLiteral("Couldn\u2019t check for updates."));
        m_dialog->setInformativeText(outcome.error);
        break;
    case Kind::newer: {
        const ReleaseFeed::Release& release = outcome.release;
        m_dialog->setText(QStringLiteral("Pictray %1 is available.").arg(release.version));
        m_dialog->setInformativeText(
            QStringLiteral("You have %1. Install the new version with your package manager "
                           "or from the download page.")
                .arg(AppConfig::version()));
        const QUrl download =
            release.downloadURL.isEmpty() ? AppConfig::downloadURL() : release.downloadURL;
        QPushButton* downloadButton =
            m_dialog->addButton(QStringLiteral("Download Page"), QMessageBox::AcceptRole);
        connect(downloadButton, &QPushButton::clicked, this,
                [download] { QDesktopServices::openUrl(download); });
        if (!release.notesURL.isEmpty()) {
            QPushButton* notes =
                m_dialog->addButton(QStringLiteral("Release Notes"), QMessageBox::ActionRole);
            const QUrl notesURL = release.notesURL;
            connect(notes, &QPushButton::clicked, this,
                    [notesURL] { QDesktopServices::openUrl(notesURL); });
        }
        break;
    }
    }
    m_dialog->addButton(QMessageBox::Close);
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}
