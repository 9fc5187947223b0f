#pragma once

#include <QPainterPath>
#include <QPointF>

// The parameters of an SVG elliptical arc command, apart from its end points.
struct SVGArc {
    double rx = 0;
    double ry = 0;
    double angleDegrees = 0;
    bool largeArc = false;
    bool sweep = false;

    // Appends the arc from `from` (the path's current point) to `to` as cubic
    // Béziers of at most a quarter turn each, ending exactly at `to`. Nothing
    // when the points are equal, a line when a radius is 0.
    void appendTo(QPainterPath& path, QPointF from, QPointF to) const;
};
