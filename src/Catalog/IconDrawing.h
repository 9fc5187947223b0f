#pragma once

#include "Icon.h"

#include <QColor>
#include <QList>
#include <QPainterPath>
#include <QTransform>

// An icon's paths of one style as the icon set paints them: runs of paths
// painted alike, each filled, stroked or both in the icon's colour, at an
// opacity. A plain icon is one layer, stroked in the outline style and
// filled in the filled style.
struct IconDrawing {
    struct Layer {
        QPainterPath path; // the 24-unit geometry, non-zero fill rule
        bool fill = false;
        bool stroke = false;
        double opacity = 1;
    };
    QList<Layer> layers;

    // Builds the layers of `paths` with the style's defaults where a path
    // says nothing; a path that does not parse loses only its own rest.
    static IconDrawing of(const PathList& paths, const PathPaints& paints, IconStyle style);

    struct Ink {
        QPainterPath shape; // to fill, non-zero
        double opacity = 1;
        // `color` at this ink's opacity.
        QColor in(const QColor& color) const;
    };
    // What to fill, in order, for the layers mapped by `transform`: strokes
    // `strokeWidth` wide (after mapping) with round caps and joins, their
    // outlines held to `tolerance`. As in SVG, a zero stroke draws nothing.
    QList<Ink> inks(const QTransform& transform, double strokeWidth, double tolerance) const;
};
