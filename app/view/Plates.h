#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <utility>
#include <vector>

class QPainter;

namespace quillary {

/// Rounded rectangles with a fill, a border inside it and a soft shadow, as they lie behind icons and labels.
///
/// Each is rendered once for its depth and drawn as an image whose middle is repeated along its longer side:
/// a plate that only grows longer, as under magnified icons, costs a few copies.
class Plates {
public:
    /// Points; shadowRadius 0 means none. The shadow leaves out what lies under the plate itself, so that a
    /// translucent fill does not darken.
    struct Look {
        double cornerRadius = 0;
        QColor fill;
        QColor border;
        double borderWidth = 1;
        QColor shadow;
        double shadowRadius = 0;
        QPointF shadowOffset;
    };

    /// Draws the plate on the painter's device, its sides moved to whole device pixels. Points.
    void draw(QPainter& painter, const QRectF& plate, const Look& look);

private:
    // Everything in device pixels.
    struct Key {
        int width, height, corner, radius, offsetX, offsetY, border;
        QRgb fill, borderColor, shadow;
        bool operator==(const Key&) const = default;
    };
    [[nodiscard]] const QImage& rendered(const Key& key);

    std::vector<std::pair<Key, QImage>> images;
};

} // namespace quillary
