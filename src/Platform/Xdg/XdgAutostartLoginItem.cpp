#include "XdgAutostartLoginItem.h"

#include "Base/AppConfig.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

bool fail(const QString& reason)
{
    qWarning().noquote() << QStringLiteral("Pictray: launch at login change failed: ") + reason;
    return false;
}

// Exec keys quote arguments with spaces and escape quotes and backslashes.
QString quotedExec(const QString& path)
{
    QString escaped = path;
    escaped.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'"', QStringLiteral("\\\""))
        .replace(u'`', QStringLiteral("\\`"))
        .replace(u'$', QStringLiteral("\\$"));
    return u'"' + escaped + u'"';
}

} // namespace

QString XdgAutostartLoginItem::entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/") + AppConfig::applicationId() + QStringLiteral(".desktop");
}

bool XdgAutostartLoginItem::isEnabled() const
{
    return QFile::exists(entryPath());
}

bool XdgAutostartLoginItem::setEnabled(bool enabled, const QString& executable)
{
    const QString path = entryPath();
    if (!enabled) {
        if (QFile::exists(path) && !QFile::remove(path))
            return fail(QStringLiteral("cannot remove ") + path);
        return true;
    }
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return fail(QStringLiteral("cannot create the folder of ") + path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    // The installed desktop file's entry (packaging/app.pictray.Pictray.desktop),
    // with this executable's full path: at login the program starts exactly
    // as from the applications menu, without a command, in the tray.
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=Pictray\n"
                                         "GenericName=Icon Picker\n"
                                         "Comment=The Tabler icon set a keystroke away\n"
                                         "Icon=%1\n"
                                         "Exec=%2\n"
                                         "Terminal=false\n"
                                         "StartupNotify=false\n"
                                         "X-GNOME-Autostart-enabled=true\n")
                              .arg(AppConfig::applicationId(), quotedExec(executable));
    file.write(entry.toUtf8());
    if (!file.commit())
        return fail(file.errorString());
    return true;
}
