#pragma once

#include "Base/PreferenceOptions.h"
#include "Platform/WindowingSession.h"

#include <QPoint>
#include <QRect>
#include <optional>

// Where the picker panel opens, in global Qt coordinates (origin at the top
// left, y down). A pure function of the position setting and the screen, so
// every edge case can be checked without a window.
namespace PanelPlacement {

inline constexpr int panelWidth = 780;
inline constexpr int bodyHeight = 730;
inline constexpr int arrowHeight = 11;
inline constexpr int arrowWidth = 22;
inline constexpr int heightWithArrow = bodyHeight + arrowHeight;
// One row of the icon grid (its cells and their spacing). On a short screen
// the body gives up whole rows, down to two fewer, to fit.
inline constexpr int gridRowHeight = 62;
inline constexpr int minBodyHeight = bodyHeight - 2 * gridRowHeight;
// Distance kept from the sides of the free screen area, and from its edge
// on the tray's side (where the panel hangs from the tray).
inline constexpr int sideMargin = 8;
inline constexpr int trayEdgeMargin = 4;
inline constexpr int mouseGap = 12;
// Without the tray icon's frame the panel sits in the tray's corner.
inline constexpr int unknownTrayGap = 12;
inline constexpr double unknownTrayArrowX = 740;
// The arrow's tip stays clear of the body's rounded corners.
inline constexpr double minArrowX = 29;
inline constexpr double maxArrowX = 751;
// The centred panel sits a little above the middle, where the eye expects it.
inline constexpr double centredLift = 0.08;
inline constexpr QRect fallbackArea{0, 0, 1440, 900};

struct Placement {
    QRect frame;
    // The arrow tip's distance from the panel's left edge; none: no arrow.
    std::optional<double> arrowX;
    // The panel hangs above a tray at the bottom, its arrow pointing down.
    bool arrowDown = false;

    int bodyHeight() const { return frame.height() - (arrowX ? arrowHeight : 0); }

    friend bool operator==(const Placement&, const Placement&) = default;
};

// `available` is the free area of the screen under the pointer (none: no
// screen at all); `trayIcon` is empty when the tray does not report it. A
// session whose compositor places windows gets the centred panel whatever
// the setting says.
Placement place(PickerPosition position, std::optional<QRect> available, QPoint cursor,
                const QRect& trayIcon, const WindowingSession& session);

// The free area of the screen under the pointer, else the primary screen's;
// none without screens.
std::optional<QRect> availableAreaAt(QPoint cursor);

} // namespace PanelPlacement
