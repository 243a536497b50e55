#include "app/settings/Switch.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormPaint.h"

#include <QPainter>
#include <QStyle>

namespace quillary {

namespace {

constexpr QSizeF trackSize(38, 22);
constexpr double knobInset = 2;
constexpr int slideTime = 160;

QColor between(const QColor& from, const QColor& to, double share) {
    const auto part = [share](float a, float b) { return a + (b - a) * static_cast<float>(share); };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

} // namespace

Switch::Switch(const QString& name, QWidget* parent) : StateButton(Kind::toggle, name, parent) {
    slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        place = value.toDouble();
        update();
    });
    connect(this, &QAbstractButton::clicked, this, [this] { Q_EMIT switched(!isOn()); });
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const {
    constexpr int ring = 2 * FormPaint::ringReach;
    return trackSize.toSize() + QSize(ring, ring);
}

void Switch::stateChanged() {
    const double target = isOn() ? 1 : 0;
    slide.stop();
    // A desktop without animations says so by this hint.
    const bool moves =
        isVisible() && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (moves) {
        slide.setDuration(slideTime);
        slide.setStartValue(place);
        slide.setEndValue(target);
        slide.start();
    } else {
        place = target;
        update();
    }
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track({}, trackSize);
    track.moveCenter(QRectF(rect()).center());
    const double radius = track.height() / 2;
    FormPaint::drawPlate(painter, track, radius, between(colours.track, colours.accent, place),
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
