#include "FormatMenu.h"

#include "Export/IconRenderer.h"
#include "PanelKeys.h"
#include "State/Preferences.h"

#include <QPainter>

namespace {

constexpr double iconSize = 15;
constexpr double iconStroke = 1.8;

QPixmap painted(const QPixmap& mask, const QColor& color)
{
    QPixmap out = mask;
    QPainter painter(&out);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), out.size()), color);
    return out;
}

// Template images are black masks that the Mac tints; menus elsewhere draw
// icons as they are, so a dark menu would hide them. Paint the mask in the
// menu's own text colours instead.
QIcon tinted(const QIcon& mask, const QPalette& palette)
{
    QIcon icon;
    if (mask.isNull())
        return icon;
    const QSize size(static_cast<int>(iconSize), static_cast<int>(iconSize));
    for (const double scale : {1.0, 2.0}) {
        const QPixmap pixmap = mask.pixmap(size, scale);
        icon.addPixmap(painted(pixmap, palette.color(QPalette::Active, QPalette::Text)),
                       QIcon::Normal);
        icon.addPixmap(painted(pixmap, palette.color(QPalette::Active, QPalette::HighlightedText)),
                       QIcon::Active);
        icon.addPixmap(painted(pixmap, palette.color(QPalette::Disabled, QPalette::Text)),
                       QIcon::Disabled);
    }
    return icon;
}

} // namespace

FormatMenu::FormatMenu(const Preferences& prefs, const IconLibrary& library, ExportFormat current,
                       Rendition rendition, QWidget* parent)
    : QMenu(QStringLiteral("Copy as"), parent)
{
    addSection(QStringLiteral("Code"));
    for (const ExportFormat format : Formats::codeFormats())
        addFormat(format, prefs, library, current, rendition);
    if (const QList<ExportFormat> images = prefs.enabledPNGFormats(); !images.isEmpty()) {
        addSeparator();
        addSection(QStringLiteral("Image"));
        for (const ExportFormat format : images)
            addFormat(format, prefs, library, current, rendition);
    }
    addSeparator();
    addAction(QStringLiteral("Customize Formats…"), this, &FormatMenu::customizeRequested);
}

QKeySequence FormatMenu::shortcutFor(ExportFormat format, Rendition rendition)
{
    if (const std::optional<int> scale = Formats::pngScale(format))
        return QKeySequence(Qt::ControlModifier | Qt::Key(Qt::Key_0 + *scale));
    const auto index = static_cast<int>(Formats::codeFormats().indexOf(format));
    return QKeySequence(PanelKeys::secondaryModifier(rendition) | Qt::Key(Qt::Key_1 + index));
}

QString FormatMenu::iconNameFor(ExportFormat format)
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

void FormatMenu::addFormat(ExportFormat format, const Preferences& prefs,
                           const IconLibrary& library, ExportFormat current, Rendition rendition)
{
    QAction* action = addAction(Formats::label(format, prefs.reactLanguage()));
    action->setData(rawValue(format));
    action->setCheckable(true);
    action->setChecked(format == current);
    // Shown with the platform's words; pressed while the menu is open it
    // does what the hint says.
    action->setShortcut(shortcutFor(format, rendition));
    action->setShortcutVisibleInContextMenu(true);
    action->setIcon(
        tinted(IconRenderer::templateImage(library, iconNameFor(format), iconSize, iconStroke),
               palette()));
    connect(action, &QAction::triggered, this, [this, format] { emit formatChosen(format); });
}
