#include "PictrayProcess.h"

#include <QEventLoop>
#include <QTimer>

QStringList PictrayProcess::Result::lines() const
{
    return QString::fromUtf8(out).split(u'\n', Qt::SkipEmptyParts);
}

PictrayProcess::PictrayProcess() : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), dataDir());
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configDir());
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
}

PictrayProcess::Result PictrayProcess::run(const QStringList& args, const QByteArray& input,
                                           int timeoutMs) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    process.start(qEnvironmentVariable("PICTRAY_BINARY"), args);
    if (!input.isEmpty())
        process.write(input);
    process.closeWriteChannel();
    loop.exec();
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return {-1, {}, "timed out"};
    }
    Result result;
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

std::unique_ptr<QProcess> PictrayProcess::start(const QStringList& args) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->start(qEnvironmentVariable("PICTRAY_BINARY"), args);
    return process;
}
