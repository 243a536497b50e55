#include "app/view/ContinuousCorners.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillary::ContinuousCorners {

namespace {

constexpr double quarter = std::numbers::pi / 4;
constexpr double diagonal = 3 * quarter;

/// The half of a corner between a straight side and the corner's diagonal, as lengths along the side (from
/// the corner's tip) and across it.
struct Half {
    /// Where the curve leaves the side.
    double start;
    /// The two control points of the gradual part, on the side.
    double firstControl, secondControl;
    /// Where the gradual part meets the arc.
    double joint, jointDepth;
    /// The arc that follows, radians.
    double arc;
};

// The smoothing s spends s of the half right angle on a cubic that starts without curvature and ends with
// the arc's.
Half halfCorner(double radius, double room) {
    const double smoothing = std::clamp(room / radius - 1, 0.0, reach - 1);
    const double beta = quarter * smoothing;
    const double start = radius * (1 + smoothing);
    // The joint lies on the circle, beta away from where a plain arc would begin.
    const double joint = radius - radius * std::sin(beta);
    const double jointDepth = radius - radius * std::cos(beta);
    // The tangent at the joint crosses the side here.
    const double crossing = joint + (beta > 0 ? jointDepth / std::tan(beta) : 0);
    // From crossing to joint it is this far. The first control point's place gives the cubic the arc's
    // curvature at the joint: two thirds of its distance from the tangent there, by the square of this.
    const double handle = beta > 0 ? jointDepth / std::sin(beta) : 0;
    const double lift = beta > 0 ? 1.5 * handle * handle / (radius * std::sin(beta)) : 0;
    return {.start = start,
            .firstControl = crossing + lift,
            .secondControl = crossing,
            .joint = joint,
            .jointDepth = jointDepth,
            .arc = quarter - beta};
}

// Continues along the circle in the corner, by angles counter-clockwise from the x axis. One cubic is exact
// to a thousandth of the radius over a right angle.
void addArc(QPainterPath& path, double radius, double from, double to) {
    const auto place = [radius](double angle) {
        return QPointF(radius + radius * std::cos(angle), radius - radius * std::sin(angle));
    };
    const double handle = 4.0 / 3 * std::tan((to - from) / 4) * radius;
    const auto along = [handle](double angle) {
        return QPointF(-handle * std::sin(angle), -handle * std::cos(angle));
    };
    path.cubicTo(place(from) + along(from), place(to) - along(to), place(to));
}

// The corner in its own axes: its tip at the origin, coming along the x axis towards it and leaving along
// the y axis. A mirrored second half continues the first.
QPainterPath corner(double radius, double roomIn, double roomOut) {
    const Half in = halfCorner(radius, roomIn);
    const Half out = halfCorner(radius, roomOut);
    QPainterPath path(QPointF(in.start, 0));
    path.cubicTo(in.firstControl, 0, in.secondControl, 0, in.joint, in.jointDepth);
    addArc(path, radius, diagonal - in.arc, diagonal + out.arc);
    path.cubicTo(0, out.secondControl, 0, out.firstControl, 0, out.start);
    return path;
}

} // namespace

QPainterPath path(const QRectF& rect, double radius) {
    const double roomX = rect.width() / 2;
    const double roomY = rect.height() / 2;
    const double r = std::min({radius, roomX, roomY});
    QPainterPath outline;
    if (r <= 0) {
        outline.addRect(rect);
        return outline;
    }
    // Counter-clockwise from the top side: each corner turned into its place.
    struct Place {
        QTransform transform;
        double in, out;
    };
    const Place places[] = {
        {QTransform(1, 0, 0, 1, rect.left(), rect.top()), roomX, roomY},
        {QTransform(0, -1, 1, 0, rect.left(), rect.bottom()), roomY, roomX},
        {QTransform(-1, 0, 0, -1, rect.right(), rect.bottom()), roomX, roomY},
        {QTransform(0, 1, -1, 0, rect.right(), rect.top()), roomY, roomX},
    };
    for (const Place& place : places) {
        const QPainterPath turned = place.transform.map(corner(r, place.in, place.out));
        if (outline.isEmpty()) {
            outline = turned;
        } else {
            outline.connectPath(turned);
        }
    }
    outline.closeSubpath();
    return outline;
}

} // namespace quillary::ContinuousCorners
