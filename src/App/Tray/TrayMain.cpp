#include <QApplication>
#include <QtGlobal>

// The tray application's entry point, called by the pictray executable when
// it starts without a command.
extern "C" Q_DECL_EXPORT int pictrayTrayMain(int argc, char* argv[])
{
    QApplication::setApplicationName(QStringLiteral("Pictray"));
    QApplication::setApplicationVersion(QStringLiteral(PICTRAY_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication app(argc, argv);
    return QApplication::exec();
}
