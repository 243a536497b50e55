#include "app/settings/FormPaint.h"

#include "app/settings/FormColours.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quillary::FormPaint {

namespace {

double pixelOf(const QPainter& painter) {
    const double ratio = painter.device()->devicePixelRatioF();
    return std::max(1.0, std::floor(ratio)) / ratio;
}

} // namespace

QRectF onPixels(const QPainter& painter, const QRectF& rect) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

void drawLine(QPainter& painter, QPointF start, double length, const QColor& colour) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(QRectF(start, QSizeF(length, 0)));
    const double left = std::round(device.left());
    const QRectF line(left, std::round(device.top()), std::round(device.right()) - left, 1);
    painter.fillRect(toDevice.inverted().mapRect(line), colour);
}

void drawPlate(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
               const QColor& border) {
    const QRectF plate = onPixels(painter, rect);
    const double width = pixelOf(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(plate, radius, radius);
    const double half = width / 2;
    painter.setPen(QPen(border, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(plate.adjusted(half, half, -half, -half), radius - half, radius - half);
}

void drawKnob(QPainter& painter, const QWidget& widget, const QRectF& circle) {
    const FormColours colours = FormColours::of(widget.palette());
    painter.setPen(Qt::NoPen);
    // Stacked discs make a gradient that is soft enough at this size.
    constexpr int rings = 3;
    QColor shadow = colours.knobShadow;
    shadow.setAlphaF(shadow.alphaF() / rings);
    painter.setBrush(shadow);
    for (int ring = 1; ring <= rings; ++ring) {
        const double out = 0.6 * ring - 0.5;
        painter.drawEllipse(circle.adjusted(-out, -out, out, out).translated(0, 0.8));
    }
    painter.setBrush(colours.knob);
    painter.drawEllipse(circle);
    painter.setPen(QPen(colours.knobBorder, 0.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(circle);
}

void drawFocusRing(QPainter& painter, const QWidget& widget, const QRectF& around, double radius) {
    if (!widget.hasFocus() || !widget.window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        return;
    }
    constexpr double width = 2.5;
    constexpr double out = 2.5;
    QColor ring = FormColours::of(widget.palette()).accent;
    ring.setAlphaF(0.65F);
    painter.setPen(QPen(ring, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(around.adjusted(-out, -out, out, out), radius + out, radius + out);
}

} // namespace quillary::FormPaint
