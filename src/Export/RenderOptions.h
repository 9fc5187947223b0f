#pragma once

#include "Export/IconExport.h"
#include "Export/IconRenderer.h"

class Preferences;

// How an export becomes a bitmap: the copy service's PNG copies and drags and
// `pictray export` render the same way.
namespace RenderOptions {

// The export's style, size, stroke; its colour when it is hexadecimal, black
// otherwise (so "currentColor" renders black); the background and padding
// of the PNG settings.
IconRenderer::Options forExport(const IconExport& item, int scale, const Preferences& preferences);

} // namespace RenderOptions
