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

QPixmap trayPixmap(const IconLibrary& library, const Icon& icon, int pixels, const QColor& color)
{
    IconRenderer::Options options;
    options.style = styleOf(icon);
    options.pointSize = pixels;
    options.padding = 1;
    options.stroke = trayStroke;
    options.color = color;
    return QPixmap::fromImage(IconRenderer::bitmap(library, icon, options));
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

QIcon trayIcon(const IconLibrary& library, const QColor& color)
{
    const Icon icon = library.icon(trayGlyphName);
    if (icon.isNull())
        return {};
    QIcon image;
    // The sizes trays ask for, so none has to be scaled.
    for (const int pixels : {16, 20, 22, 24, 32, 48, 64}) {
        if (const QPixmap pixmap = trayPixmap(library, icon, pixels, color); !pixmap.isNull())
            image.addPixmap(pixmap);
    }
    return image;
}

} // namespace MenuIcons
