#include "UpdateChecker.h"

#include "Base/AppConfig.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>

UpdateChecker::~UpdateChecker()
{
    delete m_dialog;
}

void UpdateChecker::checkForUpdates()
{
    if (!m_dialog) {
        m_dialog = new QMessageBox(QMessageBox::Information, QStringLiteral("Check for Updates"),
                                   QStringLiteral("You have Pictray %1 (%2).")
                                       .arg(AppConfig::version(), AppConfig::build()));
        m_dialog->setInformativeText(
            QStringLiteral("This build cannot look for new versions by itself yet. "
                           "New releases are announced on the Pictray website."));
        QPushButton* website =
            m_dialog->addButton(QStringLiteral("Open Website"), QMessageBox::ActionRole);
        m_dialog->addButton(QMessageBox::Close);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(website, &QPushButton::clicked, m_dialog,
                [] { QDesktopServices::openUrl(AppConfig::websiteURL()); });
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}
