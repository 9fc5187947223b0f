#include "CssColor.h"

#include "Base/HexColor.h"

#include <algorithm>
#include <cmath>

namespace {

double luminance(const QColor& color)
{
    const auto channel = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
           0.0722 * channel(color.blueF());
}

} // namespace

QColor CssColor::parse(const QString& value, const QColor& fallback)
{
    return HexColor::parse(value).value_or(fallback);
}

bool CssColor::legibleOn(const QString& value, const QColor& background)
{
    const std::optional<QColor> color = HexColor::parse(value);
    if (!color)
        return true;
    // By value: std::minmax of temporaries would hand back dangling references.
    const double a = luminance(*color);
    const double b = luminance(background);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05) >= 1.5;
}
