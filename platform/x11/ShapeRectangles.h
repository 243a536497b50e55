#pragma once

#include <QRegion>

#include <xcb/xproto.h>

#include <vector>

namespace quillary {

/// Converts a region from points, relative to a window's corner, to device pixels for the SHAPE extension.
/// Edges are rounded to the nearest pixel, so that adjacent rectangles stay adjacent, and clamped to the
/// protocol's 16-bit range.
[[nodiscard]] std::vector<xcb_rectangle_t> shapeRectangles(const QRegion& region, double scale);

} // namespace quillary
