#pragma once

#include <QPointF>
#include <QRectF>

namespace quillary {

/// The way from AppKit's global coordinates to the program's. Both count points over all screens; AppKit from
/// the bottom-left corner of the primary screen with y up, the program from its top-left corner with y down.
/// Screens below the primary one therefore have negative y there and y beyond its height here.
class ScreenCoordinates {
public:
    /// The height of the primary screen's frame, points.
    explicit ScreenCoordinates(double primaryHeight) : m_primaryHeight(primaryHeight) {}

    [[nodiscard]] QPointF point(double x, double y) const;
    /// `x` and `y` name the corner that AppKit calls a rectangle's origin, its bottom-left one.
    [[nodiscard]] QRectF rect(double x, double y, double width, double rectHeight) const;

private:
    double m_primaryHeight;
};

} // namespace quillary
