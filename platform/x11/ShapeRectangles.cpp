#include "platform/x11/ShapeRectangles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quillary {

namespace {

int pixel(int points, double scale) {
    constexpr double low = std::numeric_limits<std::int16_t>::min();
    constexpr double high = std::numeric_limits<std::int16_t>::max();
    return static_cast<int>(std::clamp(std::round(points * scale), low, high));
}

} // namespace

std::vector<xcb_rectangle_t> shapeRectangles(const QRegion& region, double scale) {
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(static_cast<std::size_t>(region.rectCount()));
    for (const QRect& rect : region) {
        const int left = pixel(rect.x(), scale);
        const int top = pixel(rect.y(), scale);
        const int right = pixel(rect.x() + rect.width(), scale);
        const int bottom = pixel(rect.y() + rect.height(), scale);
        if (right > left && bottom > top) {
            rectangles.push_back({static_cast<std::int16_t>(left), static_cast<std::int16_t>(top),
                                  static_cast<std::uint16_t>(right - left),
                                  static_cast<std::uint16_t>(bottom - top)});
        }
    }
    return rectangles;
}

} // namespace quillary
