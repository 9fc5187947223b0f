// xshot FILE.png [X Y W H [ZOOM]]: saves the X screen (or a part of it,
// enlarged ZOOM times without smoothing) as PNG, for looking at the tray and
// its menu under Xvfb. xshot --pixel X Y prints one pixel's colour as #rrggbb.
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <cstdio>

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = QGuiApplication::arguments();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return 1;
    if (args.size() == 4 && args[1] == u"--pixel") {
        const QImage pixel =
            screen->grabWindow(0, args[2].toInt(), args[3].toInt(), 1, 1).toImage();
        std::printf("%s\n", qPrintable(pixel.pixelColor(0, 0).name()));
        return 0;
    }
    if (args.size() != 2 && args.size() != 6 && args.size() != 7) {
        std::fputs("usage: xshot FILE.png [X Y W H [ZOOM]] | --pixel X Y\n", stderr);
        return 2;
    }
    QPixmap shot = args.size() >= 6 ? screen->grabWindow(0, args[2].toInt(), args[3].toInt(),
                                                         args[4].toInt(), args[5].toInt())
                                    : screen->grabWindow(0);
    if (args.size() == 7)
        shot = shot.scaled(shot.size() * args[6].toInt(), Qt::IgnoreAspectRatio,
                           Qt::FastTransformation);
    return shot.save(args[1], "PNG") ? 0 : 1;
}
