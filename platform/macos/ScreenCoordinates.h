#pragma once

#include <QPointF>
#include <QRectF>

namespace quillary {

/// Converts AppKit's global coordinates to the program's. Both are in points; the origin is the primary
/// screen's bottom-left corner with y up in AppKit, its top-left corner with y down in the program.
class ScreenCoordinates {
public:
    /// The height of the primary screen's frame, in points.
    explicit ScreenCoordinates(double primaryHeight) : m_primaryHeight(primaryHeight) {}

    [[nodiscard]] QPointF point(double x, double y) const;
    /// `x` and `y` are the rectangle's origin in AppKit's sense, its bottom-left corner.
    [[nodiscard]] QRectF rect(double x, double y, double width, double rectHeight) const;

private:
    double m_primaryHeight;
};

} // namespace quillary
