#include "app/settings/SlimScrollBar.h"

#include "app/settings/FormColours.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr double inset = 2;
constexpr double shortestThumb = 32;

} // namespace

SlimScrollBar::SlimScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setAttribute(Qt::WA_Hover);
}

QSize SlimScrollBar::sizeHint() const {
    return {thickness, QScrollBar::sizeHint().height()};
}

QRectF SlimScrollBar::thumb() const {
    const int range = maximum() - minimum();
    if (range <= 0) {
        return {};
    }
    const QRectF way = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    const double share = pageStep() / static_cast<double>(range + pageStep());
    const double length =
        std::clamp(way.height() * share, std::min(shortestThumb, way.height()), way.height());
    const double done = (value() - minimum()) / static_cast<double>(range);
    return {way.left(), way.top() + done * (way.height() - length), way.width(), length};
}

void SlimScrollBar::paintEvent(QPaintEvent* /*event*/) {
    const QRectF part = thumb();
    if (part.isEmpty()) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = FormColours::of(palette()).text;
    ink.setAlphaF(isSliderDown() || underMouse() ? 0.45F : 0.25F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawRoundedRect(part, part.width() / 2, part.width() / 2);
}

void SlimScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QRectF part = thumb();
    const double y = event->position().y();
    if (y < part.top() || y >= part.bottom()) {
        triggerAction(y < part.top() ? SliderPageStepSub : SliderPageStepAdd);
        return;
    }
    grip = y - part.top();
    setSliderDown(true);
    update();
}

void SlimScrollBar::mouseMoveEvent(QMouseEvent* event) {
    const double way = height() - 2 * inset - thumb().height();
    if (isSliderDown() && way > 0) {
        const double share = (event->position().y() - grip - inset) / way;
        setValue(minimum() + static_cast<int>(std::lround(share * (maximum() - minimum()))));
    }
}

void SlimScrollBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
    setSliderDown(false);
    update();
}

} // namespace quillary
