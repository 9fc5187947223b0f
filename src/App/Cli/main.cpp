#include "CommandLine.h"
#include "TrayLauncher.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc <= 1)
        return TrayLauncher::run(argc, argv);

    // No organisation name: the data folder is then .../Pictray, not .../Pictray/Pictray.
    QCoreApplication::setApplicationName(QStringLiteral("Pictray"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PICTRAY_VERSION));
    QCoreApplication app(argc, argv);

    QTextStream out(stdout);
    QTextStream err(stderr);
    Cli::Io io{out, err, stdout};
    const int status = Cli::run(QCoreApplication::arguments(), io);
    out.flush();
    err.flush();
    return status;
}
