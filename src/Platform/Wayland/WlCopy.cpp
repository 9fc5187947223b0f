#include "WlCopy.h"

#include <QProcess>
#include <QStandardPaths>
#include <deque>
#include <utility>

namespace {

QString program()
{
    static const QString found = QStandardPaths::findExecutable(QStringLiteral("wl-copy"));
    return found;
}

// One wl-copy at a time, in order: two started together (a clear and the
// copy after it) may set the clipboard in either order.
struct Queue {
    std::deque<std::pair<QByteArray, QString>> waiting;
    bool running = false;
};

Queue& queue()
{
    static Queue instance;
    return instance;
}

void startNext()
{
    Queue& q = queue();
    if (q.running || q.waiting.empty())
        return;
    auto [data, mimeType] = std::move(q.waiting.front());
    q.waiting.pop_front();
    q.running = true;
    auto* process = new QProcess;
    const auto done = [process] {
        process->deleteLater();
        queue().running = false;
        startNext();
    };
    // wl-copy leaves once the clipboard is set, serving it from the background.
    QObject::connect(process, &QProcess::finished, process, done);
    // Only a process that never started does not report finishing.
    QObject::connect(process, &QProcess::errorOccurred, process,
                     [done](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             done();
                     });
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
    queue().waiting.emplace_back(data, mimeType);
    startNext();
}

} // namespace WlCopy
