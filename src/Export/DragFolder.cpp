#include "DragFolder.h"

#include "Base/PrivateFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <memory>

namespace {

QString runtimeFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    // A runtime folder others share (a misconfigured /tmp) is no better than /tmp.
    if (runtime.isEmpty() || !QDir::isAbsolutePath(runtime) || !PrivateFolder::isPrivate(runtime))
        return {};
    const QString folder = QDir::cleanPath(runtime) + QStringLiteral("/Pictray");
    return PrivateFolder::claim(folder) ? folder : QString();
}

// A fresh name nobody can guess in advance, made with owner-only access and
// removed when the program ends.
QString temporaryFolder()
{
    static std::unique_ptr<QTemporaryDir> folder;
    if (!folder || !folder->isValid() || !PrivateFolder::isPrivate(folder->path()))
        folder =
            std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/Pictray-XXXXXX"));
    return folder->isValid() ? folder->path() : QString();
}

} // namespace

QString DragFolder::path()
{
    const QString runtime = runtimeFolder();
    return runtime.isEmpty() ? temporaryFolder() : runtime;
}

void DragFolder::removeOldFiles()
{
    const QString runtime = runtimeFolder();
    if (runtime.isEmpty())
        return; // the temporary folder is new for each run
    // Links and files alike: entries are removed, never followed.
    const QDir folder(runtime);
    for (const QString& name : folder.entryList(QDir::Files | QDir::System | QDir::Hidden))
        QFile::remove(folder.filePath(name));
}
