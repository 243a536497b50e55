#include "app/settings/LinesLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace quillary {

namespace {

QRect around(const std::vector<QRect>& places) {
    QRect all;
    for (const QRect& place : places) {
        all |= place;
    }
    return all;
}

} // namespace

QSize LinesLayout::sizeHint() const {
    return around(placesIn(QWIDGETSIZE_MAX)).size().grownBy(contentsMargins());
}

QSize LinesLayout::minimumSize() const {
    QSize largest;
    for (const auto& item : items()) {
        largest = largest.expandedTo(item->minimumSize());
    }
    return largest.grownBy(contentsMargins());
}

std::vector<QRect> LinesLayout::placesIn(int width) const {
    std::vector<QRect> places;
    QPoint corner;
    int lineHeight = 0;
    for (const auto& item : items()) {
        const QSize size = item->sizeHint();
        if (corner.x() > 0 && corner.x() + size.width() > width) {
            corner = {0, corner.y() + lineHeight + spacing()};
            lineHeight = 0;
        }
        places.emplace_back(corner, size);
        corner.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return places;
}

int LinesLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    return around(placesIn(width - margins.left() - margins.right())).height() + margins.top() +
           margins.bottom();
}

void LinesLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect room = rect.marginsRemoved(contentsMargins());
    const std::vector<QRect> places = placesIn(room.width());
    for (std::size_t i = 0; i < places.size(); ++i) {
        items()[i]->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), room,
                                                   places[i].translated(room.topLeft())));
    }
}

} // namespace quillary
