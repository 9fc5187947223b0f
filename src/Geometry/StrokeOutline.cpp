#include "StrokeOutline.h"

#include <QPainterPathStroker>
#include <algorithm>

namespace {

// Elements [first, end) of a path as a path of their own.
QPainterPath slice(const QPainterPath& path, int first, int end)
{
    QPainterPath part;
    for (int i = first; i < end; ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        if (e.isMoveTo()) {
            part.moveTo(e);
        } else if (e.isLineTo()) {
            part.lineTo(e);
        } else if (e.isCurveTo() && i + 2 < end) {
            part.cubicTo(e, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return part;
}

// Where each subpath starts, and the element count at the end.
QList<int> subpathStarts(const QPainterPath& path)
{
    QList<int> starts;
    for (int i = 0; i < path.elementCount(); ++i) {
        if (path.elementAt(i).isMoveTo())
            starts += i;
    }
    starts += path.elementCount();
    return starts;
}

// The contour with the largest bounds.
QPainterPath outerContour(const QPainterPath& outline)
{
    const QList<int> starts = subpathStarts(outline);
    QPainterPath outer;
    double outerArea = -1;
    for (qsizetype s = 0; s + 1 < starts.size(); ++s) {
        QPainterPath contour = slice(outline, starts[s], starts[s + 1]);
        const QRectF bounds = contour.controlPointRect();
        if (bounds.width() * bounds.height() > outerArea) {
            outerArea = bounds.width() * bounds.height();
            outer = std::move(contour);
        }
    }
    return outer;
}

// A closed loop no wider than the pen, like the dots of many icons: every
// point inside lies within half a pen width of the line, so its stroke is
// solid.
bool isDot(const QPainterPath& path, int first, int end, double penWidth)
{
    const QPointF start = path.elementAt(first);
    const QPointF last = path.elementAt(end - 1);
    if (end - first < 2 || (start - last).manhattanLength() > 1e-6)
        return false;
    double left = start.x(), right = start.x(), top = start.y(), bottom = start.y();
    for (int i = first + 1; i < end; ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        left = std::min(left, e.x);
        right = std::max(right, e.x);
        top = std::min(top, e.y);
        bottom = std::max(bottom, e.y);
    }
    return std::min(right - left, bottom - top) <= penWidth;
}

} // namespace

// The stroker gives a closed loop an outer and an inner contour running the
// other way. Where the loop is narrower than the pen the inner contour no
// longer bounds a hole, but it still cancels the winding and punches one into
// the middle of every dot; dots therefore keep only their outer contour.
QPainterPath strokeOutline(const QPainterPath& path, const QPen& pen, double tolerance)
{
    QPainterPathStroker stroker(pen);
    stroker.setCurveThreshold(tolerance);
    const QList<int> starts = subpathStarts(path);
    QList<bool> dot(starts.size() - 1);
    bool anyDot = false;
    for (qsizetype s = 0; s < dot.size(); ++s) {
        dot[s] = isDot(path, starts[s], starts[s + 1], pen.widthF());
        anyDot = anyDot || dot[s];
    }
    if (!anyDot)
        return stroker.createStroke(path);

    QPainterPath lines;
    QPainterPath dots;
    for (qsizetype s = 0; s < dot.size(); ++s) {
        const QPainterPath subpath = slice(path, starts[s], starts[s + 1]);
        if (dot[s])
            dots.addPath(outerContour(stroker.createStroke(subpath)));
        else
            lines.addPath(subpath);
    }
    QPainterPath outline = stroker.createStroke(lines);
    outline.addPath(dots);
    outline.setFillRule(Qt::WindingFill);
    return outline;
}
