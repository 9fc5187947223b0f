#pragma once

#include <QColor>
#include <optional>

// The colours the tray asks its icons to draw in: the tray manager of the
// default screen publishes them in _NET_SYSTEM_TRAY_COLORS (Plasma, Xfce,
// MATE and the StatusNotifier proxies do). Empty when there is no tray, or
// the tray does not say.
namespace X11TrayColors {

std::optional<QColor> foreground();

// The property's twelve 16-bit channels (normal, error, warning, success),
// of which the first three are the colour for ordinary icons.
std::optional<QColor> fromProperty(const quint32* values, int count);

} // namespace X11TrayColors
