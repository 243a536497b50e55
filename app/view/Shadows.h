#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <compare>
#include <map>

class QPainter;

namespace quillary {

/// Soft shadows of rounded rectangles. Each is rendered once for its depth and stretched between the ends of
/// its longer side, so that a shape which only grows longer costs no new rendering.
class Shadows {
public:
    /// What a shadow looks like: `radius` is that of the blur, in points.
    struct Look {
        double cornerRadius = 0;
        double radius = 0;
        QPointF offset;
        QColor color;
    };

    /// Draws the shadow that the shape casts; what lies under the shape itself is left out, so that a
    /// translucent shape does not darken. Points.
    void draw(QPainter& painter, const QRectF& shape, const Look& look);

private:
    struct Key {
        int width, height, corner, radius;
        QRgb color;
        auto operator<=>(const Key&) const = default;
    };
    [[nodiscard]] const QImage& rendered(const Key& key);

    std::map<Key, QImage> images;
};

} // namespace quillary
