#include "ExportFormat.h"

namespace Formats {

QString label(ExportFormat format, ReactLanguage language)
{
    switch (format) {
    case ExportFormat::svg:
        return QStringLiteral("Raw SVG");
    case ExportFormat::jsx:
        return language == ReactLanguage::tsx ? QStringLiteral("React / TSX")
                                              : QStringLiteral("React / JSX");
    case ExportFormat::vue:
        return QStringLiteral("Vue component");
    case ExportFormat::blade:
        return QStringLiteral("Blade component");
    case ExportFormat::tailwind:
        return QStringLiteral("Tailwind (currentColor)");
    case ExportFormat::dataURI:
        return QStringLiteral("Data URI");
    case ExportFormat::png1:
        return QStringLiteral("PNG @1x");
    case ExportFormat::png2:
        return QStringLiteral("PNG @2x");
    case ExportFormat::png3:
        return QStringLiteral("PNG @3x");
    }
    return {};
}

std::optional<int> pngScale(ExportFormat format)
{
    switch (format) {
    case ExportFormat::png1:
        return 1;
    case ExportFormat::png2:
        return 2;
    case ExportFormat::png3:
        return 3;
    default:
        return std::nullopt;
    }
}

QList<ExportFormat> codeFormats()
{
    return {ExportFormat::svg,   ExportFormat::jsx,      ExportFormat::vue,
            ExportFormat::blade, ExportFormat::tailwind, ExportFormat::dataURI};
}

QString label(ReactLanguage language)
{
    return rawValue(language).toUpper();
}

QString label(VueStyle style)
{
    return style == VueStyle::sfc ? QStringLiteral("Single-file component (script setup)")
                                  : QStringLiteral("Template only");
}

QString label(PNGBackground background)
{
    QString text = rawValue(background);
    text[0] = text[0].toUpper();
    return text;
}

QString label(DragFormat format)
{
    switch (format) {
    case DragFormat::bestMatch:
        return QStringLiteral("Best match for the app");
    case DragFormat::svg:
        return QStringLiteral("SVG file");
    case DragFormat::png2x:
        return QStringLiteral("PNG @2x");
    }
    return {};
}

} // namespace Formats
