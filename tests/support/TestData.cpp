#include "TestData.h"

#include <QFile>

namespace TestData {

QString sourcePath(const QString& relative)
{
    return QStringLiteral(PICTRAY_SOURCE_DIR "/") + relative;
}

QByteArray readSourceFile(const QString& relative)
{
    QFile file(sourcePath(relative));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

QString shippedCatalogue()
{
    return sourcePath(QStringLiteral("data/tabler-icons/tabler-icons.json"));
}

} // namespace TestData
