#include "TrayProgram.h"

#include "App/Instance/SingleInstance.h"
#include "AppWindows/WindowManager.h"
#include "Application.h"
#include "Base/AppConfig.h"
#include "Export/DragFolder.h"
#include "Platform/PlatformBackends.h"
#include "StartupTrace.h"

#include <QApplication>
#include <QQuickWindow>
#include <QThread>
#include <QTimer>
#include <cstdio>

namespace Shell {
namespace {

// The running instance may still be starting: keep asking for a while.
constexpr int reopenAttempts = 50;
constexpr int reopenRetryMs = 100;

int askRunningInstanceToReopen(int argc, char* argv[], const QString& serverName)
{
    QCoreApplication app(argc, argv);
    for (int attempt = 0; attempt < reopenAttempts; ++attempt) {
        InstanceReply reply;
        const auto result =
            SingleInstance::send(serverName, {InstanceRequest::Kind::reopen, {}}, &reply);
        if (result == SingleInstance::SendResult::answered)
            return 0;
        if (result == SingleInstance::SendResult::notOurs) {
            std::fprintf(stderr, "Pictray: another user's program listens on %s.\n",
                         qPrintable(serverName));
            return 1;
        }
        if (result == SingleInstance::SendResult::noAnswer)
            break;
        QThread::msleep(reopenRetryMs);
    }
    std::fputs("Pictray is already running but does not answer.\n", stderr);
    return 1;
}

} // namespace

int runTray(int argc, char* argv[])
{
    QString problem;
    const auto serverName = SingleInstance::defaultServerName(&problem);
    if (!serverName) {
        std::fprintf(stderr, "Pictray cannot start: %s\n", qPrintable(problem));
        return 1;
    }
    SingleInstance instance(*serverName);
    if (!instance.acquire())
        return askRunningInstanceToReopen(argc, argv, instance.serverName());
    DragFolder::removeOldFiles(); // only the instance that runs owns them

    WindowManager::chooseControlsStyle();
    // The software scene graph: a panel of flat icons gains nothing from the
    // GPU, and without one Mesa's software GL costs twice the memory and a
    // slower first frame. QT_QUICK_BACKEND still picks another.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        const QByteArray platform = PlatformBackends::preferredQtPlatform(
            qgetenv("XDG_SESSION_TYPE"), qgetenv("WAYLAND_DISPLAY"));
        if (!platform.isEmpty())
            qputenv("QT_QPA_PLATFORM", platform);
    }
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // The compositor's app id and the portal's: the desktop file's name.
    QGuiApplication::setDesktopFileName(AppConfig::applicationId());
    StartupTrace::mark("application object");

    Application shell;
    if (!instance.listen(
            [&shell](const InstanceRequest& request) { return shell.handle(request); })) {
        std::fputs("Pictray: cannot listen for `pictray toggle` and friends.\n", stderr);
    }
    shell.start();
    QTimer::singleShot(0, &app, [] { StartupTrace::mark("event loop running"); });
    return QApplication::exec();
}

} // namespace Shell
