#include "GlyphImageProvider.h"

#include "Catalog/IconLibrary.h"
#include "Export/IconRenderer.h"

namespace {
constexpr int defaultPixels = 48;
}

GlyphImageProvider::GlyphImageProvider(const IconLibrary& library)
    : QQuickImageProvider(QQuickImageProvider::Image), m_library(library)
{
}

QImage GlyphImageProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    // NAME or NAME/RRGGBB
    const qsizetype slash = id.indexOf(u'/');
    const Icon icon = m_library.icon(slash < 0 ? QStringView(id) : QStringView(id).left(slash));
    if (icon.isNull())
        return {};
    IconRenderer::Options options;
    if (slash >= 0) {
        const QColor color = QColor::fromString(u'#' + id.mid(slash + 1));
        if (color.isValid())
            options.color = color;
    }
    options.style = icon.has(IconStyle::outline) ? IconStyle::outline : IconStyle::filled;
    const int pixels = requestedSize.isValid() && requestedSize.width() > 0
                           ? std::max(requestedSize.width(), requestedSize.height())
                           : defaultPixels;
    options.pointSize = pixels;
    QImage image = IconRenderer::bitmap(m_library, icon, options);
    if (size)
        *size = image.size();
    return image;
}
