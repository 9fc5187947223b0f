#pragma once

#include "Export/IconExport.h"

#include <QImage>
#include <QList>
#include <QString>
#include <functional>

// An independent rasteriser to hold IconRenderer against: librsvg's
// rsvg-convert, run on the SVG text the product exports for the same icon.
namespace RsvgReference {

// rsvg-convert from the PATH; empty when it is not installed.
QString program();

// Each SVG text (beginning "<svg") as rsvg-convert draws it at `scale`
// pixels per point, clipped to `cell` points square. All go into one run.
QList<QImage> renderTexts(const QStringList& svgs, int cell, int scale, QString* error);

// Each item as rsvg-convert draws it at `scale` pixels per point, from the
// one-line SVG in black. All items go into one run: they are laid out as
// nested <svg> cells of one sheet, which is cut apart again. Empty with
// *error set when the run fails.
QList<QImage> render(const QList<IconExport>& items, int scale, QString* error);

// Calls `run(first, count)` over 0..total in runs of `perRun`, on `jobs`
// threads at once, until all are done or one returns an error, which is
// returned (empty when all went well).
QString inRuns(qsizetype total, qsizetype perRun, int jobs,
               const std::function<QString(qsizetype first, qsizetype count)>& run);

struct AlphaDifference {
    double mean = 0; // over every pixel, 0..255
    int max = 0;     // 0..255
};

// Images of different sizes differ everywhere: mean and max 255.
AlphaDifference alphaDifference(const QImage& a, const QImage& b);

// The area covered, in pixels: the sum of alpha over 255.
double ink(const QImage& image);

} // namespace RsvgReference
