#include "app/view/ShelfShape.h"

#include <algorithm>

namespace quillary {

double ShelfShape::slant(double depth) {
    constexpr double share = 0.9;
    constexpr double most = 28;
    return std::min(depth * share, most);
}

QPolygonF ShelfShape::path(const QRectF& rect) const {
    return path(rect, slant(isHorizontal(edge) ? rect.height() : rect.width()));
}

QPolygonF ShelfShape::path(const QRectF& rect, double d) const {
    switch (edge) {
    case DockEdge::bottom:
        return QPolygonF({rect.bottomLeft(), rect.bottomRight(), QPointF(rect.right() - d, rect.top()),
                          QPointF(rect.left() + d, rect.top())});
    case DockEdge::top:
        return QPolygonF({rect.topLeft(), rect.topRight(), QPointF(rect.right() - d, rect.bottom()),
                          QPointF(rect.left() + d, rect.bottom())});
    case DockEdge::left:
        return QPolygonF({rect.topLeft(), rect.bottomLeft(), QPointF(rect.right(), rect.bottom() - d),
                          QPointF(rect.right(), rect.top() + d)});
    case DockEdge::right:
        break;
    }
    return QPolygonF({rect.topRight(), rect.bottomRight(), QPointF(rect.left(), rect.bottom() - d),
                      QPointF(rect.left(), rect.top() + d)});
}

} // namespace quillary
