#include "WlCopy.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

QString program()
{
    static const QString found = QStandardPaths::findExecutable(QStringLiteral("wl-copy"));
    return found;
}

} // namespace

namespace WlCopy {

bool isInstalled()
{
    return !program().isEmpty();
}

void offer(const QByteArray& data, const QString& mimeType)
{
    if (!isInstalled())
        return;
    auto* process = new QProcess;
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, &QObject::deleteLater);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    if (mimeType.isEmpty()) {
        process->start(program(), {QStringLiteral("--clear")});
        return;
    }
    process->start(program(), {QStringLiteral("--type"), mimeType});
    process->write(data);
    process->closeWriteChannel();
}

} // namespace WlCopy
