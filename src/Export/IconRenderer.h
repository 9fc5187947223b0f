#pragma once

#include "Base/Rendition.h"
#include "Catalog/Icon.h"

#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QImage>
#include <QStringView>
#include <optional>

class IconLibrary;

// Rasterises one catalogue icon into a square bitmap: the PNG copies and
// drags, and the small monochrome images of the tray menu. It keeps no state;
// bitmap() and encodePNG() may run on any thread, templateImage() makes
// pixmaps and so belongs to the GUI thread.
struct IconRenderer {
    struct Options {
        IconStyle style = IconStyle::outline;
        double pointSize = 24; // icon edge in points, without padding
        double stroke = 2;     // in icon units (the 24-unit grid): it scales with the icon
        QColor color = Qt::black;
        double scale = 1;                      // pixels per point
        std::optional<QColor> background;      // none: transparent
        double padding = 0;                    // empty margin on every side, in points
        Rendition rendition = hostRendition(); // the desktop's resolution for a 1x image
    };

    // An n x n image with n = round(scale x (pointSize + 2 x padding)) and
    // devicePixelRatio = scale; null when the icon has no path or n < 1.
    static QImage bitmap(const IconLibrary& library, const Icon& icon, const Options& options);
    static QImage bitmap(const Icon& icon, const Options& options); // the shared library

    // The named icon as a black outline at 1x and 2x, marked as a mask so the
    // desktop tints it. Null for an unknown name or when nothing renders.
    static QIcon templateImage(const IconLibrary& library, QStringView name, double size,
                               double stroke);
    static QIcon templateImage(QStringView name, double size, double stroke);

    // PNG bytes of the image, tuned for icon-sized images; empty on failure.
    static QByteArray encodePNG(const QImage& image);
};
