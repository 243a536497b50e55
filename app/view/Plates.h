#pragma once

#include "core/DockEdge.h"

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>

#include <utility>
#include <vector>

class QPainter;

namespace quillary {

/// Draws surfaces with a fill, a border and a soft shadow: the backgrounds of docks and labels.
///
/// Each is rendered once for its depth and drawn as an image whose middle is repeated along its longer side,
/// so that a plate that only grows longer, as under magnified icons, costs a few copies.
class Plates {
public:
    enum class Outline {
        /// A rectangle with continuous corners.
        rounded,
        /// A trapezoid with its long side at the edge (`Look::edge`).
        shelf,
    };

    /// Points; shadowRadius 0 means none. The shadow leaves out what lies under the plate itself, so that a
    /// translucent fill does not darken.
    struct Look {
        Outline outline = Outline::rounded;
        double cornerRadius = 0;
        QColor fill;
        /// Laid over the fill, running from the side that faces away from `edge` to the one at it.
        QColor glossFar{Qt::transparent};
        QColor glossNear{Qt::transparent};
        /// Whether the middle runs along x, whatever the plate's sides; where the gloss ends.
        DockEdge edge = DockEdge::bottom;
        /// Inside a rounded outline; along the middle of a shelf's.
        QColor border;
        double borderWidth = 0;
        QColor shadow;
        double shadowRadius = 0;
        QPointF shadowOffset;
    };

    /// Draws the plate on the painter's device, its sides moved to whole device pixels. Points.
    void draw(QPainter& painter, const QRectF& plate, const Look& look);

private:
    // Everything in device pixels.
    struct Key {
        Outline outline;
        DockEdge edge;
        int width, height;
        /// Of a corner the radius; of a shelf how far each end is drawn in.
        double corner;
        double radius, border;
        int offsetX, offsetY;
        QRgb fill, glossFar, glossNear, borderColor, shadow;
        bool operator==(const Key&) const = default;
        [[nodiscard]] int margin() const;
        [[nodiscard]] QPainterPath path(const QRectF& plate, double inset) const;
    };
    [[nodiscard]] const QImage& rendered(const Key& key);
    [[nodiscard]] static QImage render(const Key& key);

    std::vector<std::pair<Key, QImage>> m_images;
};

} // namespace quillary
