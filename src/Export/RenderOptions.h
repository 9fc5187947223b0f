#pragma once

#include "Export/IconExport.h"
#include "Export/IconRenderer.h"

#include <QColor>
#include <QStringView>
#include <optional>

class Preferences;

// How an export becomes a bitmap: the copy service's PNG copies and drags and
// `pictray export` render the same way.
namespace RenderOptions {

// CSS hexadecimal colours: #rgb, #rgba, #rrggbb, #rrggbbaa (alpha last).
std::optional<QColor> parseHexColor(QStringView text);

// The export's style, size, stroke; its colour when it is hexadecimal, black
// otherwise (so "currentColor" renders black); the background and padding
// of the PNG settings.
IconRenderer::Options forExport(const IconExport& item, int scale, const Preferences& preferences);

} // namespace RenderOptions
