#include "DragFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <memory>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

QString runtimeFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    // A runtime folder others share (a misconfigured /tmp) is no better than /tmp.
    if (runtime.isEmpty() || !QDir::isAbsolutePath(runtime) || !DragFolder::isPrivate(runtime))
        return {};
    const QString folder = QDir::cleanPath(runtime) + QStringLiteral("/Pictray");
    // Fails harmlessly when it exists; what is there is checked either way.
    QDir().mkdir(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return DragFolder::isPrivate(folder) ? folder : QString();
}

// A fresh name nobody can guess in advance, made with owner-only access and
// removed when the program ends.
QString temporaryFolder()
{
    static std::unique_ptr<QTemporaryDir> folder;
    if (!folder || !folder->isValid() || !DragFolder::isPrivate(folder->path()))
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

bool DragFolder::isPrivate(const QString& path)
{
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::WriteOther | QFileDevice::ExeOther;
    const QFileInfo info(path);
    if (info.isSymLink() || !info.isDir() || (info.permissions() & others))
        return false;
#ifdef Q_OS_UNIX
    return info.ownerId() == ::getuid();
#else
    return true;
#endif
}
