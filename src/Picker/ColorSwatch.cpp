#include "ColorSwatch.h"

#include <algorithm>

namespace {

const QList<ColorSwatch>& fixedSwatches()
{
    static const QList<ColorSwatch> swatches{
        {QStringLiteral("currentColor"), QStringLiteral("currentColor (inherits text color)")},
        {QStringLiteral("#1D1D1F"), QStringLiteral("Black")},
        {QStringLiteral("#6B7280"), QStringLiteral("Gray")},
        {QStringLiteral("#FFFFFF"), QStringLiteral("White")},
        {QStringLiteral("#DC2626"), QStringLiteral("Red")},
        {QStringLiteral("#F97316"), QStringLiteral("Orange")},
        {QStringLiteral("#EAB308"), QStringLiteral("Yellow")},
        {QStringLiteral("#16A34A"), QStringLiteral("Green")},
        {QStringLiteral("#0891B2"), QStringLiteral("Cyan")},
        {QStringLiteral("#0068DA"), QStringLiteral("Blue")},
        {QStringLiteral("#7C3AED"), QStringLiteral("Violet")},
        {QStringLiteral("#EC4899"), QStringLiteral("Pink")},
    };
    return swatches;
}

bool isFixed(const QString& color)
{
    const auto& fixed = fixedSwatches();
    return std::any_of(fixed.cbegin(), fixed.cend(), [&](const ColorSwatch& swatch) {
        return swatch.value.compare(color, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

QList<ColorSwatch> ColorSwatches::forColors(const QString& defaultColor, const QString& color)
{
    QList<ColorSwatch> swatches = fixedSwatches();
    for (const QString& candidate : {defaultColor, color}) {
        if (isFixed(candidate))
            continue;
        const bool listed = std::any_of(swatches.cbegin(), swatches.cend(),
                                        [&](const ColorSwatch& s) { return s.value == candidate; });
        if (!listed)
            swatches.append({candidate, QStringLiteral("Custom ") + candidate});
    }
    return swatches;
}
