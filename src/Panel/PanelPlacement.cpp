#include "PanelPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace PanelPlacement {
namespace {

int fittedBodyHeight(double room)
{
    int body = bodyHeight;
    while (body > room && body - gridRowHeight >= minBodyHeight)
        body -= gridRowHeight;
    return body;
}

} // namespace

Placement place(PickerPosition position, std::optional<QRect> available, QPoint cursor,
                const QRect& reportedTrayIcon, const WindowingSession& session)
{
    if (!session.placesWindows)
        position = PickerPosition::centered;
    const QRect trayIcon = session.trayReportsGeometry ? reportedTrayIcon : QRect();
    // Edges as coordinates (QRect's right() and bottom() are the last pixel).
    const QRectF area(available.value_or(fallbackArea));
    const double half = panelWidth / 2.0;

    // A tray at the bottom (Linux and Windows panels) opens the panel above
    // the icon; the free area usually ends where the tray's panel begins,
    // but a tray that reserves no space overlaps it.
    const QRectF icon(trayIcon);
    const bool underIcon = position == PickerPosition::underMenuBarIcon && !trayIcon.isEmpty();
    const bool hangsAboveTray = underIcon && icon.center().y() > area.center().y();
    const double trayEdge = hangsAboveTray ? std::min(area.bottom(), icon.top()) - trayEdgeMargin
                                           : std::max(area.top(), icon.bottom()) + trayEdgeMargin;
    const double room = !underIcon       ? area.height() - trayEdgeMargin - sideMargin
                        : hangsAboveTray ? trayEdge - area.top() - sideMargin
                                         : area.bottom() - sideMargin - trayEdge;
    const int arrow = position == PickerPosition::underMenuBarIcon ? arrowHeight : 0;
    const int height = fittedBodyHeight(room - arrow) + arrow;

    Placement result;
    double x = 0;
    double y = 0;
    switch (position) {
    case PickerPosition::underMenuBarIcon:
        if (underIcon) {
            y = hangsAboveTray ? trayEdge - height : trayEdge;
            x = icon.center().x() - half;
        } else {
            x = area.right() - panelWidth - unknownTrayGap;
            y = area.top() + trayEdgeMargin;
            result.arrowX = unknownTrayArrowX;
        }
        break;
    case PickerPosition::centered:
        x = area.center().x() - half;
        y = area.center().y() - height / 2.0 - centredLift * area.height();
        break;
    case PickerPosition::mouse:
        x = cursor.x() - half;
        y = cursor.y() + mouseGap;
        break;
    }

    // On a screen narrower or shorter than the panel, the right edge and the
    // tray's edge win.
    x = std::min(std::max(x, area.left() + sideMargin), area.right() - panelWidth - sideMargin);
    if (underIcon) {
        // An icon near a screen edge: the panel gives up its side margin
        // before its arrow gives up pointing at the icon.
        x = std::max(std::min(x, icon.center().x() - minArrowX), icon.center().x() - maxArrowX);
        x = std::min(std::max(x, area.left()), area.right() - panelWidth);
    }
    if (hangsAboveTray)
        y = std::min(std::max(y, area.top() + sideMargin), area.bottom() - height - trayEdgeMargin);
    else
        y = std::max(std::min(y, area.bottom() - height - sideMargin), area.top() + trayEdgeMargin);

    const auto left = static_cast<int>(std::lround(x));
    result.frame = QRect(left, static_cast<int>(std::lround(y)), panelWidth, height);
    if (underIcon) {
        // Keeps pointing at the icon when the panel is pushed in from an edge.
        result.arrowX = std::clamp(icon.center().x() - left, minArrowX, maxArrowX);
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
