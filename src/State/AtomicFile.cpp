#include "AtomicFile.h"

#include <QDir>
#include <QSaveFile>

std::optional<QString> writeFileAtomically(const QString& path, const QByteArray& data)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit())
        return std::nullopt;
    return QStringLiteral("Cannot write %1: %2")
        .arg(QDir::toNativeSeparators(path), file.errorString());
}
