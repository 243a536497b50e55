#include "platform/macos/ScreenCoordinates.h"

namespace quillary {

QPointF ScreenCoordinates::point(double x, double y) const {
    return {x, m_primaryHeight - y};
}

QRectF ScreenCoordinates::rect(double x, double y, double width, double rectHeight) const {
    return {point(x, y + rectHeight), QSizeF(width, rectHeight)};
}

} // namespace quillary
