#include "app/settings/StepSlider.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormPaint.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr QSize naturalSize(220, 30);
constexpr double knobSide = 18;
constexpr double trackThickness = 4;
constexpr double tickSide = 2;
constexpr double tickDrop = 11.5;
constexpr int pageSteps = 3;

} // namespace

StepSlider::StepSlider(const QString& name, Scale scale, QWidget* parent)
    : QWidget(parent), m_scale(scale), m_value(scale.least) {
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize StepSlider::sizeHint() const {
    constexpr int ring = 2 * FormPaint::ringReach;
    return naturalSize + QSize(ring, 0);
}

void StepSlider::setValue(double value) {
    if (value == m_value) {
        return;
    }
    m_value = value;
    update();
    QAccessibleValueChangeEvent event(this, value);
    QAccessible::updateAccessibility(&event);
}

void StepSlider::choose(double value) {
    const double within =
        std::clamp(value, static_cast<double>(m_scale.least), static_cast<double>(m_scale.most));
    ask(std::round(within / m_scale.step) * m_scale.step);
}

void StepSlider::ask(double value) {
    const int wanted = std::clamp(static_cast<int>(std::lround(value)), m_scale.least, m_scale.most);
    if (wanted != m_value) {
        Q_EMIT chosen(wanted);
    }
}

QRectF StepSlider::track() const {
    QRectF line(0, 0, rect().width() - 2 * FormPaint::ringReach, trackThickness);
    line.moveCenter(QRectF(rect()).center());
    return line;
}

double StepSlider::placeOf(double value) const {
    const QRectF line = track().adjusted(knobSide / 2, 0, -knobSide / 2, 0);
    const double share =
        std::clamp((value - m_scale.least) / static_cast<double>(m_scale.most - m_scale.least), 0.0, 1.0);
    return layoutDirection() == Qt::RightToLeft ? line.right() - share * line.width()
                                                : line.left() + share * line.width();
}

double StepSlider::valueAt(double x) const {
    const QRectF line = track().adjusted(knobSide / 2, 0, -knobSide / 2, 0);
    const double way = (x - line.left()) / line.width();
    const double share = layoutDirection() == Qt::RightToLeft ? 1 - way : way;
    return m_scale.least + share * (m_scale.most - m_scale.least);
}

QRectF StepSlider::knob() const {
    QRectF circle(0, 0, knobSide, knobSide);
    circle.moveCenter({placeOf(m_value), track().center().y()});
    return circle;
}

void StepSlider::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF line = track();
    painter.setPen(Qt::NoPen);
    QColor ticks = colours.text;
    ticks.setAlphaF(0.28F);
    painter.setBrush(ticks);
    for (int value = m_scale.least; value <= m_scale.most; value += m_scale.step) {
        QRectF tick(0, 0, tickSide, tickSide);
        tick.moveCenter({placeOf(value), line.center().y() + tickDrop});
        painter.drawEllipse(tick);
    }
    FormPaint::drawPlate(painter, line, trackThickness / 2, colours.track, colours.trackBorder);
    QRectF filled = line;
    const QRectF circle = knob();
    if (layoutDirection() == Qt::RightToLeft) {
        filled.setLeft(circle.center().x());
    } else {
        filled.setRight(circle.center().x());
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.accent);
    painter.drawRoundedRect(FormPaint::onPixels(painter, filled), trackThickness / 2, trackThickness / 2);
    FormPaint::drawKnob(painter, *this, circle);
    if (m_grip) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.pressed);
        painter.drawEllipse(circle);
    }
    FormPaint::drawFocusRing(painter, *this, circle.adjusted(0.5, 0.5, -0.5, -0.5), knobSide / 2 - 0.5);
}

void StepSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPointF place = event->position();
    const QRectF circle = knob();
    if (circle.contains(place)) {
        // The knob keeps its distance from the pointer: a press alone changes nothing.
        m_grip = circle.center().x() - place.x();
    } else {
        m_grip = 0;
        choose(valueAt(place.x()));
    }
    update();
}

void StepSlider::mouseMoveEvent(QMouseEvent* event) {
    if (m_grip) {
        choose(valueAt(event->position().x() + *m_grip));
    }
}

void StepSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_grip.reset();
        update();
    }
}

void StepSlider::keyPressEvent(QKeyEvent* event) {
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    int steps = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        steps = -forward;
        break;
    case Qt::Key_Right:
        steps = forward;
        break;
    case Qt::Key_Down:
        steps = -1;
        break;
    case Qt::Key_Up:
        steps = 1;
        break;
    case Qt::Key_PageDown:
        steps = -pageSteps;
        break;
    case Qt::Key_PageUp:
        steps = pageSteps;
        break;
    case Qt::Key_Home:
        ask(m_scale.least);
        return;
    case Qt::Key_End:
        ask(m_scale.most);
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    // From a value between two steps the first one leads to the next of them.
    const double at =
        std::clamp(m_value, static_cast<double>(m_scale.least), static_cast<double>(m_scale.most)) /
        m_scale.step;
    ask(((steps > 0 ? std::floor(at) : std::ceil(at)) + steps) * m_scale.step);
}

} // namespace quillary
