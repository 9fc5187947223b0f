#include "SVGArc.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <numbers>

namespace {

bool allFinite(std::same_as<double> auto... values)
{
    return (std::isfinite(values) && ...);
}

// An ellipse rotated by phi about its centre, parameterised by angle.
struct Ellipse {
    double cx, cy, rx, ry, cosPhi, sinPhi;

    QPointF point(double cosTheta, double sinTheta) const
    {
        return {cx + rx * cosPhi * cosTheta - ry * sinPhi * sinTheta,
                cy + rx * sinPhi * cosTheta + ry * cosPhi * sinTheta};
    }
    QPointF tangent(double cosTheta, double sinTheta) const
    {
        return {-rx * cosPhi * sinTheta - ry * sinPhi * cosTheta,
                -rx * sinPhi * sinTheta + ry * cosPhi * cosTheta};
    }
};

} // namespace

// SVG endpoint parameterisation to centre parameterisation, then one cubic
// per quarter turn at most.
void SVGArc::appendTo(QPainterPath& path, QPointF from, QPointF to) const
{
    using std::numbers::pi;
    // Exactly equal: QPointF's == would also swallow arcs shorter than 1e-12.
    if (from.x() == to.x() && from.y() == to.y())
        return;
    if (rx == 0 || ry == 0) {
        path.lineTo(to);
        return;
    }
    double radiusX = std::abs(rx);
    double radiusY = std::abs(ry);
    // Icon arcs are almost never rotated; skip the trigonometry for them.
    const double phi = angleDegrees * pi / 180;
    const double cosPhi = angleDegrees == 0 ? 1.0 : std::cos(phi);
    const double sinPhi = angleDegrees == 0 ? 0.0 : std::sin(phi);

    const double dx = (from.x() - to.x()) / 2;
    const double dy = (from.y() - to.y()) / 2;
    // The start point in the ellipse's own frame, relative to the chord's middle.
    const double x1p = cosPhi * dx + sinPhi * dy;
    const double y1p = -sinPhi * dx + cosPhi * dy;

    // Radii too small to reach the end point grow until they just do.
    const double lambda = x1p * x1p / (radiusX * radiusX) + y1p * y1p / (radiusY * radiusY);
    if (lambda > 1) {
        radiusX *= std::sqrt(lambda);
        radiusY *= std::sqrt(lambda);
    }
    const double rx2y1p = radiusX * radiusX * y1p * y1p;
    const double ry2x1p = radiusY * radiusY * x1p * x1p;
    const double q = (radiusX * radiusX * radiusY * radiusY - rx2y1p - ry2x1p) / (rx2y1p + ry2x1p);
    double c = std::sqrt(std::max(q, 0.0));
    if (largeArc == sweep)
        c = -c;
    const double centreX = c * radiusX * y1p / radiusY;
    const double centreY = -c * radiusY * x1p / radiusX;
    const Ellipse ellipse{cosPhi * centreX - sinPhi * centreY + (from.x() + to.x()) / 2,
                          sinPhi * centreX + cosPhi * centreY + (from.y() + to.y()) / 2,
                          radiusX,
                          radiusY,
                          cosPhi,
                          sinPhi};

    const double theta1 = std::atan2((y1p - centreY) / radiusY, (x1p - centreX) / radiusX);
    const double theta2 = std::atan2((-y1p - centreY) / radiusY, (-x1p - centreX) / radiusX);
    double sweepAngle = theta2 - theta1;
    if (!sweep && sweepAngle > 0)
        sweepAngle -= 2 * pi;
    else if (sweep && sweepAngle < 0)
        sweepAngle += 2 * pi;

    // Coordinates near the limits of double overflow on the way; such an arc
    // is drawn as its chord rather than not at all.
    if (!allFinite(ellipse.cx, ellipse.cy, radiusX, radiusY, sweepAngle)) {
        path.lineTo(to);
        return;
    }

    // The tolerance keeps an exact quarter turn, give or take rounding, one segment.
    const int segments = std::max(1, int(std::ceil(std::abs(sweepAngle) / (pi / 2) - 0.001)));
    const double delta = sweepAngle / segments;
    const double t = 4.0 / 3.0 * std::tan(delta / 4);

    // Each segment's end is the previous one turned by delta: one rotation
    // instead of a sine and cosine per segment (at most four, so rounding
    // cannot build up).
    const double cosDelta = std::cos(delta);
    const double sinDelta = std::sin(delta);
    double cosA = std::cos(theta1);
    double sinA = std::sin(theta1);
    for (int i = 1; i <= segments; ++i) {
        const double cosB = cosA * cosDelta - sinA * sinDelta;
        const double sinB = sinA * cosDelta + cosA * sinDelta;
        const QPointF endB = ellipse.point(cosB, sinB);
        // The last segment ends exactly on the requested point, so a following
        // command or close continues without a gap.
        path.cubicTo(ellipse.point(cosA, sinA) + t * ellipse.tangent(cosA, sinA),
                     endB - t * ellipse.tangent(cosB, sinB), i == segments ? to : endB);
        cosA = cosB;
        sinA = sinB;
    }
}
