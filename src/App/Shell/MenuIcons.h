#pragma once

#include <QColor>
#include <QIcon>
#include <QStringView>

class IconLibrary;

// The catalogue glyphs the tray shows.
namespace MenuIcons {

// The named icon in one colour at 1x and 2x, outline where it has one; null
// for an unknown name. Menus pass their text colour, so the glyphs follow a
// dark menu as well as a light one.
QIcon glyph(const IconLibrary& library, QStringView name, double pointSize, QColor color);

// The tray icon: the "icons" glyph in white with a dark rim, readable on
// light and dark panels alike (a panel's colour is not something X11 tells
// its tray icons).
QIcon trayIcon(const IconLibrary& library);

} // namespace MenuIcons
