#include "App/Shell/StartupTrace.h"
#include "App/Shell/TrayProgram.h"

#include <QCoreApplication>
#include <QtGlobal>

// The tray application's entry point, called by the pictray executable when
// it starts without a command.
extern "C" Q_DECL_EXPORT int pictrayTrayMain(int argc, char* argv[])
{
    StartupTrace::begin();
    // No organisation name: the data folder is then .../Pictray, not .../Pictray/Pictray.
    QCoreApplication::setApplicationName(QStringLiteral("Pictray"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PICTRAY_VERSION));
    return Shell::runTray(argc, argv);
}
