#include "PlatformWords.h"

#include <array>

namespace PlatformWords {
namespace {

struct Wording {
    const char16_t* mac;
    const char16_t* pc;
};

// In the order of Text.
constexpr std::array<Wording, textCount> wordings{{
    {u"Show icon in menu bar", u"Show icon in tray"},
    {u"When hidden, open Pictray with the shortcut or from Spotlight.",
     u"When hidden, open Pictray with the shortcut or by starting Pictray again."},
    {u"Under the menu bar icon", u"Under the tray icon"},
    {u"A menu bar picker for the Tabler icon set.", u"A tray picker for the Tabler icon set."},
    {u"Pictray lives in your menu bar. Click its icon or press your shortcut from any app.",
     u"Pictray lives in your tray. Click its icon or press your shortcut from any app."},
    {u"stored on this Mac", u"stored on this computer"},
    {u"Drag into Figma, Keynote or Slack", u"Drag into Figma, Inkscape or Slack"},
    {u"Drag any icon into Figma, Keynote or Slack", u"Drag any icon into Figma, Inkscape or Slack"},
    {u"Figma and Keynote take vectors, Slack takes images",
     u"Figma and Inkscape take vectors, Slack takes images"},
    {u"Vectors for Figma and Keynote, images for Slack.",
     u"Vectors for Figma and Inkscape, images for Slack."},
}};

} // namespace

QString text(Text which, Rendition rendition)
{
    const Wording& wording = wordings.at(static_cast<std::size_t>(which));
    return QString::fromUtf16(rendition == Rendition::mac ? wording.mac : wording.pc);
}

} // namespace PlatformWords
