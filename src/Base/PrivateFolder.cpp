#include "PrivateFolder.h"

#include <QDir>
#include <QFileInfo>
#include <unistd.h>

namespace PrivateFolder {

bool isPrivate(const QString& path)
{
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::WriteOther | QFileDevice::ExeOther;
    const QFileInfo info(path);
    return !info.isSymLink() && info.isDir() && !(info.permissions() & others) &&
           info.ownerId() == ::getuid();
}

bool claim(const QString& path)
{
    // Fails harmlessly when it exists; what is there is checked either way.
    QDir().mkdir(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return isPrivate(path);
}

} // namespace PrivateFolder
