#pragma once

#include <QPainterPath>
#include <QPen>

// The area the pen covers when it strokes the path, as a path to fill with
// the non-zero rule: QPainterPathStroker's outline with its offset curves
// held to `tolerance` (in the path's units), and dots drawn solid.
QPainterPath strokeOutline(const QPainterPath& path, const QPen& pen, double tolerance);
