#include "LibrarySettings.h"

#include "Base/PlatformWords.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "State/AtomicFile.h"
#include "State/UserLibrary.h"

#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

namespace {

QString askDesktop(LibrarySettings::FileChoice choice)
{
    const QString filter = QStringLiteral("JSON files (*.json);;All files (*)");
    if (choice == LibrarySettings::FileChoice::open)
        return QFileDialog::getOpenFileName(nullptr, QStringLiteral("Import Favorites"), QString(),
                                            filter);
    const QString proposed =
        QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
            .filePath(UserLibrary::exportFileName());
    return QFileDialog::getSaveFileName(nullptr, QStringLiteral("Export Favorites"), proposed,
                                        filter);
}

} // namespace

LibrarySettings::LibrarySettings(IconLibrary& library, UserLibrary& user, IconUpdater& updater,
                                 Rendition rendition, QObject* parent)
    : QObject(parent), m_library(library), m_user(user), m_updater(updater), m_rendition(rendition),
      m_chooseFile(askDesktop)
{
    connect(&library, &IconLibrary::catalogueChanged, this, &LibrarySettings::iconSetChanged);
    connect(&updater, &IconUpdater::stateChanged, this, &LibrarySettings::updaterChanged);
    connect(&user, &UserLibrary::favoritesChanged, this, &LibrarySettings::favoritesChanged);
    connect(&user, &UserLibrary::recentsChanged, this, &LibrarySettings::recentsChanged);
}

QString LibrarySettings::iconSetName() const
{
    return QStringLiteral("Tabler Icons ") + m_library.version();
}

QString LibrarySettings::iconSetDetail() const
{
    return IconLibrary::number(m_library.outlineCount()) + QStringLiteral(" outline, ") +
           IconLibrary::number(m_library.filledCount()) + QStringLiteral(" filled · ") +
           PlatformWords::text(PlatformWords::Text::storedHere, m_rendition);
}

QString LibrarySettings::updaterStatus() const
{
    return m_updater.statusText();
}

bool LibrarySettings::isChecking() const
{
    return m_updater.isBusy();
}

QString LibrarySettings::favoritesText() const
{
    const auto count = m_user.favorites().size();
    if (count == 0)
        return QStringLiteral("No favorites");
    return IconLibrary::number(count) +
           (count == 1 ? QStringLiteral(" favorite") : QStringLiteral(" favorites"));
}

bool LibrarySettings::hasRecents() const
{
    return !m_user.recents().isEmpty();
}

void LibrarySettings::checkForNewIcons()
{
    m_updater.checkForNewIcons();
}

void LibrarySettings::chooseExportFile()
{
    const QString path = m_chooseFile(FileChoice::save);
    if (!path.isEmpty())
        exportFavorites(path);
}

void LibrarySettings::chooseImportFile()
{
    const QString path = m_chooseFile(FileChoice::open);
    if (!path.isEmpty())
        importFavorites(path);
}

void LibrarySettings::exportFavorites(const QString& path)
{
    if (const auto error = writeFileAtomically(path, m_user.exportFavorites())) {
        setMessage(QStringLiteral("Export failed: ") + *error);
        return;
    }
    setMessage(QStringLiteral("Exported ") + QString::number(m_user.favorites().size()) +
               QStringLiteral(" favorites."));
}

void LibrarySettings::importFavorites(const QString& path)
{
    QString error;
    const auto data = UserLibrary::readImportFile(path, &error);
    if (!data) {
        setMessage(error);
        return;
    }
    const auto added = m_user.importFavorites(*data);
    setMessage(added ? UserLibrary::importedMessage(*added) : UserLibrary::notAnExportMessage());
}

void LibrarySettings::clearRecents()
{
    m_user.clearRecents();
}

void LibrarySettings::setMessage(const QString& message)
{
    m_message = message;
    emit messageChanged();
}
