#include "IconRenderer.h"

#include "Catalog/IconLibrary.h"

#include <QBuffer>
#include <QPainter>
#include <QPixmap>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace {

// Far beyond any icon a user exports; refusing more keeps a wild size from
// allocating gigabytes.
constexpr double maximumSide = 16384;

// Pixels per inch of a 1x image on the desktop. Apps that size pasted images
// by their resolution (office suites, page layout, macOS Preview) then show an
// @2x or @3x PNG at its point size instead of two or three times as large, and
// apps that ignore it still see the full pixel size.
double pixelsPerInchAt1x(Rendition rendition)
{
    return rendition == Rendition::mac ? 72 : 96;
}
constexpr double inchesPerMetre = 1 / 0.0254;

// How far, in pixels, the stroke's offset curves may stray from the true
// ones. At Qt's 0.25 the arcs of a circle come out an eighth of a pixel thin
// against librsvg; 0.1 halves the mean difference over the whole set (see
// tools/compare-rsvg) for about a third more time on arc-heavy icons.
constexpr double curveThreshold = 0.1;

// zlib level 2, through Qt's PNG quality q, which picks level (100 - q) * 9 / 91.
// Icons are small and mostly empty: over the whole set at 24 points @2x,
// level 2 encodes in 0.15 ms against 0.26 ms for Qt's default level 6, for
// files a fifth larger (740 against 615 bytes on average). Level 1 is as fast
// with slightly larger files; unpacked rows are ten times the size. See
// bench/RenderBench.cpp.
constexpr int pngQuality = 75;

} // namespace

QImage IconRenderer::bitmap(const IconLibrary& library, const Icon& icon, const Options& options)
{
    if (icon.isNull())
        return {};
    const std::optional<IconDrawing> drawing = library.iconDrawing(icon, options.style);
    if (!drawing)
        return {};
    const double side = std::round(options.scale * (options.pointSize + 2 * options.padding));
    if (!(options.scale > 0 && side >= 1 && side <= maximumSide)) // also refuses NaN
        return {};
    const int n = static_cast<int>(side);

    QImage image(n, n, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(options.background.value_or(QColor(Qt::transparent)));
    // Icon data and images both run y down: the icon's top-left corner goes
    // to the top-left corner inside the padding. Mapped to pixels up front
    // rather than drawn through the painter's transform: the raster engine
    // fills an untransformed path about twice as fast, and the stroke's
    // tolerance is then in pixels.
    const double k = options.pointSize * options.scale / 24;
    const double origin = options.padding * options.scale;
    const QList<IconDrawing::Ink> inks =
        drawing->inks(QTransform(k, 0, 0, k, origin, origin), options.stroke * k, curveThreshold);
    if (!inks.isEmpty()) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const IconDrawing::Ink& ink : inks)
            painter.fillPath(ink.shape, ink.in(options.color));
    }
    image.setDevicePixelRatio(options.scale);
    const int dotsPerMetre = qRound(
        std::min(pixelsPerInchAt1x(options.rendition) * options.scale * inchesPerMetre, 1e9));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return image;
}

QImage IconRenderer::bitmap(const Icon& icon, const Options& options)
{
    return bitmap(IconLibrary::shared(), icon, options);
}

QIcon IconRenderer::templateImage(const IconLibrary& library, QStringView name, double size,
                                  double stroke)
{
    const Icon icon = library.icon(name);
    if (icon.isNull())
        return {};
    QIcon image;
    for (const double scale : {1.0, 2.0}) {
        Options options;
        options.pointSize = size;
        options.stroke = stroke;
        options.scale = scale;
        if (const QImage rendered = bitmap(library, icon, options); !rendered.isNull())
            image.addPixmap(QPixmap::fromImage(rendered));
    }
    if (!image.isNull())
        image.setIsMask(true);
    return image;
}

QIcon IconRenderer::templateImage(QStringView name, double size, double stroke)
{
    return templateImage(IconLibrary::shared(), name, size, stroke);
}

QByteArray IconRenderer::encodePNG(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG", pngQuality))
        return {};
    return bytes;
}
