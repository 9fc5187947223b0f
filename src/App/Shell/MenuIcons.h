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

// The tray icon: the "icons" glyph in one colour, the one the tray draws
// its icons in, like the panel's other symbolic icons.
QIcon trayIcon(const IconLibrary& library, const QColor& color);

} // namespace MenuIcons
