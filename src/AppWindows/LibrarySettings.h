#pragma once

#include "Base/Rendition.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

class IconLibrary;
class IconUpdater;
class UserLibrary;

// The Library section of the General tab: the icon set and its updates,
// favorites to and from a file, and the recents.
class LibrarySettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the settings window")
    Q_PROPERTY(QString iconSetName READ iconSetName NOTIFY iconSetChanged)
    Q_PROPERTY(QString iconSetDetail READ iconSetDetail NOTIFY iconSetChanged)
    Q_PROPERTY(QString updaterStatus READ updaterStatus NOTIFY updaterChanged)
    Q_PROPERTY(bool checking READ isChecking NOTIFY updaterChanged)
    Q_PROPERTY(QString favoritesText READ favoritesText NOTIFY favoritesChanged)
    Q_PROPERTY(bool hasRecents READ hasRecents NOTIFY recentsChanged)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)

public:
    LibrarySettings(IconLibrary& library, UserLibrary& user, IconUpdater& updater,
                    Rendition rendition = hostRendition(), QObject* parent = nullptr);

    // "Tabler Icons 3.31.0"
    QString iconSetName() const;
    // "4,964 outline, 1,053 filled · stored on this computer"
    QString iconSetDetail() const;
    QString updaterStatus() const;
    bool isChecking() const;
    // "No favorites", "1 favorite", "12 favorites"
    QString favoritesText() const;
    bool hasRecents() const;
    // The outcome of the last import or export; empty before one.
    QString message() const { return m_message; }

    Q_INVOKABLE void checkForNewIcons();
    // Ask for a file with the desktop's dialog, then export or import.
    Q_INVOKABLE void chooseExportFile();
    Q_INVOKABLE void chooseImportFile();
    // Writes the favorites to the file, replacing it in one step.
    void exportFavorites(const QString& path);
    void importFavorites(const QString& path);
    Q_INVOKABLE void clearRecents();

    enum class FileChoice { save, open };
    // The chosen file's path, empty when the user cancels.
    using FileChooser = std::function<QString(FileChoice)>;
    // For tests: answers in place of the desktop's dialogs.
    void setFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

signals:
    void iconSetChanged();
    void updaterChanged();
    void favoritesChanged();
    void recentsChanged();
    void messageChanged();

private:
    void setMessage(const QString& message);

    IconLibrary& m_library;
    UserLibrary& m_user;
    IconUpdater& m_updater;
    Rendition m_rendition;
    QString m_message;
    FileChooser m_chooseFile;
};
