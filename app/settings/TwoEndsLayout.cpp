#include "app/settings/TwoEndsLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace quillary {

namespace {

int heightOf(const QLayoutItem& item, int width) {
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

} // namespace

QSize TwoEndsLayout::sizeHint() const {
    const QSize leading = items().at(0)->sizeHint();
    const QSize trailing = items().at(1)->sizeHint();
    return QSize(leading.width() + spacing() + trailing.width(),
                 std::max(leading.height(), trailing.height()))
        .grownBy(contentsMargins());
}

QSize TwoEndsLayout::minimumSize() const {
    return items().at(0)->minimumSize().expandedTo(items().at(1)->minimumSize()).grownBy(contentsMargins());
}

TwoEndsLayout::Places TwoEndsLayout::placesIn(int width) const {
    const QLayoutItem& leading = *items().at(0);
    const QLayoutItem& trailing = *items().at(1);
    const int natural = trailing.sizeHint().width();
    if (const int rest = width - spacing() - natural; rest >= leading.minimumSize().width()) {
        const int height = std::max(heightOf(leading, rest), heightOf(trailing, natural));
        return {.leading = {0, 0, rest, height}, .trailing = {width - natural, 0, natural, height}};
    }
    const int above = heightOf(leading, width);
    const int below = std::min(natural, width);
    return {.leading = {0, 0, width, above},
            .trailing = {width - below, above, below, heightOf(trailing, below)}};
}

int TwoEndsLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    const Places places = placesIn(width - margins.left() - margins.right());
    return places.leading.united(places.trailing).height() + margins.top() + margins.bottom();
}

void TwoEndsLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect room = rect.marginsRemoved(contentsMargins());
    Places places = placesIn(room.width());
    const int spare = room.height() - places.leading.united(places.trailing).height();
    if (places.trailing.top() == places.leading.top()) {
        places.leading.setHeight(room.height());
        places.trailing.setHeight(room.height());
    } else if (spare > 0) {
        places.leading.setHeight(places.leading.height() + spare);
        places.trailing.translate(0, spare);
    }
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    items().at(0)->setGeometry(
        QStyle::visualRect(direction, room, places.leading.translated(room.topLeft())));
    items().at(1)->setGeometry(
        QStyle::visualRect(direction, room, places.trailing.translated(room.topLeft())));
}

} // namespace quillary
