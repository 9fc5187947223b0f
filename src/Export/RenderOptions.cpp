#include "RenderOptions.h"

#include "State/Preferences.h"

#include <algorithm>

namespace RenderOptions {

std::optional<QColor> parseHexColor(QStringView text)
{
    text = text.trimmed();
    if (!text.startsWith(u'#'))
        return std::nullopt;
    text = text.sliced(1);
    if (text.size() != 3 && text.size() != 4 && text.size() != 6 && text.size() != 8)
        return std::nullopt;
    bool ok = false;
    const uint value = text.toUInt(&ok, 16);
    if (!ok)
        return std::nullopt;
    const auto nibble = [&](int index) {
        return int((value >> (4 * (int(text.size()) - 1 - index))) & 0xF) * 17;
    };
    const auto byte = [&](int index) {
        return int((value >> (8 * (int(text.size()) / 2 - 1 - index))) & 0xFF);
    };
    switch (text.size()) {
    case 3:
        return QColor(nibble(0), nibble(1), nibble(2));
    case 4:
        return QColor(nibble(0), nibble(1), nibble(2), nibble(3));
    case 6:
        return QColor(byte(0), byte(1), byte(2));
    default:
        return QColor(byte(0), byte(1), byte(2), byte(3));
    }
}

IconRenderer::Options forExport(const IconExport& item, int scale, const Preferences& preferences)
{
    IconRenderer::Options options;
    options.style = item.style;
    options.pointSize = item.size;
    options.stroke = item.stroke;
    options.color = parseHexColor(item.color).value_or(QColor(Qt::black));
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
