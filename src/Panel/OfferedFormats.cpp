#include "OfferedFormats.h"

#include "PanelKeys.h"
#include "State/Preferences.h"

OfferedFormats OfferedFormats::from(const Preferences& prefs, Rendition rendition)
{
    const auto entry = [&](ExportFormat format) {
        return OfferedFormat{format, Formats::label(format, prefs.reactLanguage()),
                             glyphFor(format), shortcutFor(format, rendition)};
    };
    OfferedFormats offered;
    for (const ExportFormat format : Formats::codeFormats())
        offered.code.append(entry(format));
    for (const ExportFormat format : prefs.enabledPNGFormats())
        offered.image.append(entry(format));
    return offered;
}

QList<ExportFormat> OfferedFormats::all() const
{
    QList<ExportFormat> formats;
    for (const QList<OfferedFormat>* group : {&code, &image}) {
        for (const OfferedFormat& entry : *group)
            formats.append(entry.format);
    }
    return formats;
}

QKeySequence OfferedFormats::shortcutFor(ExportFormat format, Rendition rendition)
{
    if (const std::optional<int> scale = Formats::pngScale(format))
        return QKeySequence(Qt::ControlModifier | Qt::Key(Qt::Key_0 + *scale));
    const auto index = static_cast<int>(Formats::codeFormats().indexOf(format));
    return QKeySequence(PanelKeys::secondaryModifier(rendition) | Qt::Key(Qt::Key_1 + index));
}

QString OfferedFormats::glyphFor(ExportFormat format)
{
    switch (format) {
    case ExportFormat::svg:
        return QStringLiteral("file-type-svg");
    case ExportFormat::jsx:
        return QStringLiteral("brand-react");
    case ExportFormat::vue:
        return QStringLiteral("brand-vue");
    case ExportFormat::blade:
        return QStringLiteral("brand-laravel");
    case ExportFormat::tailwind:
        return QStringLiteral("brand-tailwind");
    case ExportFormat::dataURI:
        return QStringLiteral("link");
    case ExportFormat::png1:
    case ExportFormat::png2:
    case ExportFormat::png3:
        break;
    }
    return QStringLiteral("file-type-png");
}
