#pragma once

#include "Export/IconExport.h"

#include <QImage>
#include <QList>
#include <QString>

// An independent rasteriser to hold IconRenderer against: librsvg's
// rsvg-convert, run on the SVG text the product exports for the same icon.
namespace RsvgReference {

// rsvg-convert from the PATH; empty when it is not installed.
QString program();

// Each item as rsvg-convert draws it at `scale` pixels per point, from the
// one-line SVG in black. All items go into one run: they are laid out as
// nested <svg> cells of one sheet, which is cut apart again. Empty with
// *error set when the run fails.
QList<QImage> render(const QList<IconExport>& items, int scale, QString* error);

struct AlphaDifference {
    double mean = 0; // over every pixel, 0..255
    int max = 0;     // 0..255
};

// Images of different sizes differ everywhere: mean and max 255.
AlphaDifference alphaDifference(const QImage& a, const QImage& b);

} // namespace RsvgReference
