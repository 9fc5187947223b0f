#include "MenuIcons.h"

#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"

#include <QPainter>

namespace MenuIcons {
namespace {

IconStyle styleOf(const Icon& icon)
{
    return icon.has(IconStyle::outline) ? IconStyle::outline : IconStyle::filled;
}

constexpr QStringView trayGlyphName = u"icons";
constexpr double trayStroke = 2;

QPixmap trayPixmap(const IconLibrary& library, const Icon& icon, int pixels)
{
    // One pixel of rim on every side: the glyph is drawn a little smaller, and
    // under it the same glyph with a stroke two pixels wider, in dark.
    const double glyphPixels = pixels - 2;
    const double unitsPerPixel = 24.0 / glyphPixels;
    IconRenderer::Options options;
    options.style = styleOf(icon);
    options.pointSize = glyphPixels;
    options.padding = 1;
    options.stroke = trayStroke + 2 * unitsPerPixel;
    options.color = QColor(0, 0, 0, 190);
    const QImage rim = IconRenderer::bitmap(library, icon, options);
    options.stroke = trayStroke;
    options.color = Qt::white;
    const QImage glyph = IconRenderer::bitmap(library, icon, options);
    if (rim.isNull() || glyph.isNull())
        return {};
    QImage combined = rim;
    QPainter painter(&combined);
    painter.drawImage(0, 0, glyph);
    painter.end();
    return QPixmap::fromImage(combined);
}

} // namespace

QIcon glyph(const IconLibrary& library, QStringView name, double pointSize, QColor color)
{
    const Icon icon = library.icon(name);
    if (icon.isNull())
        return {};
    QIcon image;
    for (const double scale : {1.0, 2.0}) {
        IconRenderer::Options options;
        options.style = styleOf(icon);
        options.pointSize = pointSize;
        options.scale = scale;
        options.color = color;
        if (const QImage rendered = IconRenderer::bitmap(library, icon, options);
            !rendered.isNull())
            image.addPixmap(QPixmap::fromImage(rendered));
    }
    return image;
}

QIcon trayIcon(const IconLibrary& library)
{
    const Icon icon = library.icon(trayGlyphName);
    if (icon.isNull())
        return {};
    QIcon image;
    // The sizes trays ask for, so none has to be scaled.
    for (const int pixels : {16, 20, 22, 24, 32, 48, 64}) {
        if (const QPixmap pixmap = trayPixmap(library, icon, pixels); !pixmap.isNull())
            image.addPixmap(pixmap);
    }
    return image;
}

} // namespace MenuIcons
