#include "IconDrawing.h"

#include "Geometry/SVGPath.h"
#include "Geometry/StrokeOutline.h"

#include <QPen>

IconDrawing IconDrawing::of(const PathList& paths, const PathPaints& paints, IconStyle style)
{
    const bool filledStyle = style == IconStyle::filled;
    IconDrawing drawing;
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const PathPaint paint = i < paints.size() ? paints[i] : PathPaint();
        const bool fill = paint.fill().value_or(filledStyle);
        const bool stroke = paint.stroke().value_or(!filledStyle);
        const double opacity = paint.opacity();
        // Stroked paths painted alike share one path, as every path of a plain
        // outline icon does. A filled path is filled on its own, as an SVG
        // renderer fills each element: merged, two overlapping paths drawn in
        // opposite directions would leave a hole under the non-zero rule.
        if (drawing.layers.isEmpty() || fill || drawing.layers.last().fill ||
            drawing.layers.last().stroke != stroke || drawing.layers.last().opacity != opacity) {
            QPainterPath path;
            path.setFillRule(Qt::WindingFill);
            drawing.layers.append({path, fill, stroke, opacity});
        }
        SVGPath::append(paths[i], drawing.layers.last().path);
    }
    if (drawing.layers.isEmpty()) {
        QPainterPath empty;
        empty.setFillRule(Qt::WindingFill);
        drawing.layers.append({empty, filledStyle, !filledStyle, 1});
    }
    return drawing;
}

QList<IconDrawing::Ink> IconDrawing::inks(const QTransform& transform, double strokeWidth,
                                          double tolerance) const
{
    QList<Ink> result;
    for (const Layer& layer : layers) {
        const QPainterPath mapped = transform.map(layer.path);
        QPainterPath stroked;
        if (layer.stroke && strokeWidth > 0) {
            stroked = strokeOutline(
                mapped, QPen(Qt::black, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin),
                tolerance);
        }
        if (layer.fill && !stroked.isEmpty() && layer.opacity < 1) {
            // Fill and stroke fade as one: overlapping them would show the seam.
            result.append({mapped.united(stroked), layer.opacity});
            continue;
        }
        if (layer.fill)
            result.append({mapped, layer.opacity});
        if (!stroked.isEmpty())
            result.append({stroked, layer.opacity});
    }
    for (Ink& ink : result)
        ink.shape.setFillRule(Qt::WindingFill);
    return result;
}

QColor IconDrawing::Ink::in(const QColor& color) const
{
    if (opacity >= 1)
        return color;
    QColor faded = color;
    faded.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return faded;
}
