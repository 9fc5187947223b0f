#include "AtomicFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

QString cannotWrite(const QString& path, const QString& reason)
{
    return QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), reason);
}

} // namespace

std::optional<QString> writeFileAtomically(const QString& path, const QByteArray& data)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir()) {
        // Unbuffered, so that a device that refuses (/dev/full) says so at the write.
        QFile special(path);
        if (special.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
            special.write(data) == data.size())
            return std::nullopt;
        return cannotWrite(path, special.errorString());
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit())
        return std::nullopt;
    return cannotWrite(path, file.errorString());
}
