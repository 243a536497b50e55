#pragma once

#include <QRegion>

#include <xcb/xproto.h>

#include <vector>

namespace quillary {

/// The region, in points from a window's corner, as rectangles of device pixels for the SHAPE extension.
/// Edges go to the nearest pixel, so neighbours stay joined; what the protocol's 16-bit numbers cannot hold
/// is cut off.
[[nodiscard]] std::vector<xcb_rectangle_t> shapeRectangles(const QRegion& region, double scale);

} // namespace quillary
