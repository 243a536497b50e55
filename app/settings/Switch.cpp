#include "app/settings/Switch.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormPaint.h"

#include <QPainter>

namespace quillary {

namespace {

constexpr QSizeF trackSize(38, 22);
constexpr double knobInset = 2;

} // namespace

Switch::Switch(const QString& name, QWidget* parent) : StateButton(name, parent) {
    connect(this, &QAbstractButton::toggled, this, [this](bool on) { m_place.moveTo(on ? 1.0 : 0.0); });
    connect(this, &QAbstractButton::clicked, this, [this](bool on) { Q_EMIT switched(!on); });
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const {
    constexpr int ring = 2 * FormPaint::ringReach;
    return trackSize.toSize() + QSize(ring, ring);
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double place = m_place.value().toDouble();
    QRectF track({}, trackSize);
    track.moveCenter(QRectF(rect()).center());
    const double radius = track.height() / 2;
    FormPaint::drawPlate(painter, track, radius,
                         mixed(colours.switchOff, colours.accent, static_cast<float>(place)),
                         colours.trackBorder);
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.pressed);
        painter.drawRoundedRect(track, radius, radius);
    }
    const double side = track.height() - 2 * knobInset;
    const double way = layoutDirection() == Qt::RightToLeft ? 1 - place : place;
    const double left = track.left() + knobInset + way * (track.width() - 2 * knobInset - side);
    FormPaint::drawKnob(painter, *this, QRectF(left, track.top() + knobInset, side, side));
    FormPaint::drawFocusRing(painter, *this, track, radius);
}

} // namespace quillary
