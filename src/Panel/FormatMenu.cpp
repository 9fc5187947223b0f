#include "FormatMenu.h"

#include "Export/IconRenderer.h"
#include "State/Preferences.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr double iconSize = 15;
constexpr double iconStroke = 1.8;
// Between the button and the menu.
constexpr int gap = 4;

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
    const OfferedFormats offered = OfferedFormats::from(prefs, rendition);
    addSection(QStringLiteral("Code"));
    for (const OfferedFormat& entry : offered.code)
        addFormat(entry, library, current);
    if (!offered.image.isEmpty()) {
        addSeparator();
        addSection(QStringLiteral("Image"));
        for (const OfferedFormat& entry : offered.image)
            addFormat(entry, library, current);
    }
    addSeparator();
    addAction(QStringLiteral("Customize Formats…"), this, &FormatMenu::customizeRequested);
}

QPoint FormatMenu::popupPosition(const QRect& button, const QSize& menu, const QRect& screen)
{
    int y = button.bottom() + 1 + gap;
    if (y + menu.height() > screen.bottom() + 1)
        y = std::max(screen.top(), button.top() - gap - menu.height());
    const int x = std::clamp(button.left(), screen.left(),
                             std::max(screen.left(), screen.right() + 1 - menu.width()));
    return {x, y};
}

void FormatMenu::addFormat(const OfferedFormat& entry, const IconLibrary& library,
                           ExportFormat current)
{
    QAction* action = addAction(entry.label);
    action->setData(rawValue(entry.format));
    action->setCheckable(true);
    action->setChecked(entry.format == current);
    // Shown with the platform's words; pressed while the menu is open it
    // does what the hint says.
    action->setShortcut(entry.keys);
    action->setShortcutVisibleInContextMenu(true);
    action->setIcon(
        tinted(IconRenderer::templateImage(library, entry.glyph, iconSize, iconStroke), palette()));
    const ExportFormat format = entry.format;
    connect(action, &QAction::triggered, this, [this, format] { emit formatChosen(format); });
}
