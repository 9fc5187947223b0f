#include "TestData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace TestData {

QString sourcePath(const QString& relative)
{
    return QStringLiteral(PICTRAY_SOURCE_DIR "/") + relative;
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QString shippedCatalogue()
{
    return sourcePath(QStringLiteral("data/tabler-icons/tabler-icons.json"));
}

QStringList names(const IconList& icons)
{
    QStringList result;
    for (const Icon& icon : icons)
        result.append(icon.id());
    return result;
}

} // namespace TestData
