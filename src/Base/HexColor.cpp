#include "HexColor.h"

#include <algorithm>

namespace HexColor {

std::optional<QColor> parse(QStringView text)
{
    text = text.trimmed();
    if (!text.startsWith(u'#'))
        return std::nullopt;
    text = text.sliced(1);
    const qsizetype length = text.size();
    // Digits only: QString::toUInt would also take a sign, spaces or "0x".
    const bool hex = std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    });
    if (!hex || (length != 3 && length != 4 && length != 6 && length != 8))
        return std::nullopt;
    const uint value = text.toUInt(nullptr, 16);
    const int digitsPerChannel = length <= 4 ? 1 : 2;
    const int channels = int(length) / digitsPerChannel;
    const auto channel = [&](int index) {
        const int bits = 4 * digitsPerChannel;
        const int part = int((value >> (bits * (channels - 1 - index))) & ((1u << bits) - 1));
        return digitsPerChannel == 1 ? part * 17 : part;
    };
    return QColor(channel(0), channel(1), channel(2), channels == 4 ? channel(3) : 255);
}

bool isColorValue(QStringView text)
{
    return text == u"currentColor" || (text == text.trimmed() && parse(text).has_value());
}

std::optional<QString> fromTyped(QStringView text)
{
    text = text.trimmed();
    if (text.compare(u"currentColor", Qt::CaseInsensitive) == 0)
        return QStringLiteral("currentColor");
    const QString withHash = text.startsWith(u'#') ? text.toString() : u'#' + text.toString();
    const std::optional<QColor> color = parse(withHash);
    if (!color)
        return std::nullopt;
    QString hex = color->name(QColor::HexRgb).toUpper();
    if (color->alpha() != 255)
        hex += QStringLiteral("%1").arg(color->alpha(), 2, 16, QLatin1Char('0')).toUpper();
    return hex;
}

} // namespace HexColor
