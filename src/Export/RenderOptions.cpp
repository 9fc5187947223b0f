#include "RenderOptions.h"

#include "Base/HexColor.h"
#include "State/Preferences.h"

#include <algorithm>

namespace RenderOptions {

IconRenderer::Options forExport(const IconExport& item, int scale, const Preferences& preferences)
{
    IconRenderer::Options options;
    options.style = item.style;
    options.pointSize = item.size;
    options.stroke = item.stroke;
    options.color = HexColor::parse(item.color).value_or(QColor(Qt::black));
    options.scale = scale;
    switch (preferences.pngBackground()) {
    case PNGBackground::transparent:
        break;
    case PNGBackground::white:
        options.background = QColor(Qt::white);
        break;
    case PNGBackground::black:
        options.background = QColor(Qt::black);
        break;
    }
    // Stored numbers are used as they are, within what a bitmap can hold.
    options.padding =
        static_cast<double>(std::clamp<qint64>(preferences.pngPadding(), -100'000, 100'000));
    return options;
}

} // namespace RenderOptions
