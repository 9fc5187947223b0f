#include "PreferenceRanges.h"

std::optional<ValueRange> PreferenceRanges::forKey(QStringView key)
{
    if (key == u"recentsLimit")
        return recentsLimit;
    if (key == u"defaultSize")
        return iconSize;
    if (key == u"defaultStroke")
        return stroke;
    if (key == u"pngPadding")
        return pngPadding;
    return std::nullopt;
}
