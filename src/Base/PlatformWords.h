#pragma once

#include "Rendition.h"

#include <QString>

// The texts that name a desktop's places or applications, in each rendition's
// words: the Mac's "menu bar" is the tray elsewhere, "this Mac" is "this
// computer", Spotlight is starting the program again, and Keynote, a Mac
// application, gives way to Inkscape in the drag hints.
namespace PlatformWords {

enum class Text {
    showIcon,          // "Show icon in menu bar"
    showIconCaption,   // "When hidden, open Pictray with the shortcut or from Spotlight."
    underTrayIcon,     // "Under the menu bar icon"
    tagline,           // "A menu bar picker for the Tabler icon set."
    livesInTray,       // "Pictray lives in your menu bar. Click its icon or ..."
    storedHere,        // "stored on this Mac"
    dragInto,          // "Drag into Figma, Keynote or Slack"
    dragAnyInto,       // "Drag any icon into Figma, Keynote or Slack"
    dragFormatCaption, // "Figma and Keynote take vectors, Slack takes images"
    dragFeature,       // "Vectors for Figma and Keynote, images for Slack."
};
inline constexpr int textCount = static_cast<int>(Text::dragFeature) + 1;

QString text(Text which, Rendition rendition);

} // namespace PlatformWords
