#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

// Runs the built pictray binary with its own empty config and data folders.
// The event loop keeps running meanwhile, so servers in the test process answer.
class PictrayProcess {
public:
    struct Result {
        int exitCode = -1;
        QByteArray out;
        QByteArray err;
        QStringList lines() const;
    };

    PictrayProcess();

    QString dataDir() const { return m_home.filePath(QStringLiteral("data")); }
    QString configDir() const { return m_home.filePath(QStringLiteral("config")); }
    QProcessEnvironment& environment() { return m_environment; }

    Result run(const QStringList& args, const QByteArray& input = {}, int timeoutMs = 20000) const;
    // Started and left running, for tests of several at once.
    std::unique_ptr<QProcess> start(const QStringList& args) const;

private:
    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
};
