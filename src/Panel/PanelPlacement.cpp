#include "PanelPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace PanelPlacement {

Placement place(PickerPosition position, std::optional<QRect> available, QPoint cursor,
                const QRect& reportedTrayIcon, const WindowingSession& session)
{
    if (!session.placesWindows)
        position = PickerPosition::centered;
    const QRect trayIcon = session.trayReportsGeometry ? reportedTrayIcon : QRect();
    // Edges as coordinates (QRect's right() and bottom() are the last pixel).
    const QRectF area(available.value_or(fallbackArea));
    const double half = panelWidth / 2.0;

    Placement result;
    int height = bodyHeight;
    bool hangsAboveTray = false;
    double x = 0;
    double y = 0;
    switch (position) {
    case PickerPosition::underMenuBarIcon:
        height = heightWithArrow;
        if (trayIcon.isEmpty()) {
            x = area.right() - panelWidth - unknownTrayGap;
            y = area.top() + trayEdgeMargin;
            result.arrowX = unknownTrayArrowX;
        } else {
            // A tray at the bottom (Linux and Windows panels) opens the panel
            // above the icon; the free area usually ends where the tray's
            // panel begins, but a tray that reserves no space overlaps it.
            const QRectF icon(trayIcon);
            hangsAboveTray = icon.center().y() > area.center().y();
            y = hangsAboveTray ? std::min(area.bottom(), icon.top()) - trayEdgeMargin - height
                               : std::max(area.top(), icon.bottom()) + trayEdgeMargin;
            x = icon.center().x() - half;
        }
        break;
    case PickerPosition::centered:
        x = area.center().x() - half;
        y = area.center().y() - bodyHeight / 2.0 - centredLift * area.height();
        break;
    case PickerPosition::mouse:
        x = cursor.x() - half;
        y = cursor.y() + mouseGap;
        break;
    }

    // On a screen narrower or shorter than the panel, the right edge and the
    // tray's edge win.
    x = std::min(std::max(x, area.left() + sideMargin), area.right() - panelWidth - sideMargin);
    if (hangsAboveTray)
        y = std::min(std::max(y, area.top() + sideMargin), area.bottom() - height - trayEdgeMargin);
    else
        y = std::max(std::min(y, area.bottom() - height - sideMargin), area.top() + trayEdgeMargin);

    const auto left = static_cast<int>(std::lround(x));
    result.frame = QRect(left, static_cast<int>(std::lround(y)), panelWidth, height);
    if (position == PickerPosition::underMenuBarIcon && !trayIcon.isEmpty()) {
        // Keeps pointing at the icon when the panel is pushed in from an edge.
        result.arrowX = std::clamp(QRectF(trayIcon).center().x() - left, minArrowX, maxArrowX);
        result.arrowDown = hangsAboveTray;
    }
    return result;
}

std::optional<QRect> availableAreaAt(QPoint cursor)
{
    QScreen* screen = QGuiApplication::screenAt(cursor);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return std::nullopt;
    return screen->availableGeometry();
}

} // namespace PanelPlacement
