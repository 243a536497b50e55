#include "app/settings/FormButton.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormFont.h"
#include "app/settings/FormPaint.h"

#include <QPainter>

#include <algorithm>

namespace quillary {

namespace {

constexpr int padX = 12;
constexpr int padY = 4;
constexpr int leastHeight = 26;
constexpr double corner = 6;

} // namespace

FormButton::FormButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
    setTextRole(*this, TextRole::body);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize FormButton::sizeHint() const {
    constexpr int ring = 2 * FormPaint::ringReach;
    const QSize title = fontMetrics().size(Qt::TextSingleLine, text());
    return {title.width() + 2 * padX + ring, std::max(title.height() + 2 * padY, leastHeight) + ring};
}

void FormButton::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int ring = FormPaint::ringReach;
    const QRectF plate = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
    painter.setPen(Qt::NoPen);
    QColor shadow = colours.knobShadow;
    shadow.setAlphaF(shadow.alphaF() * 0.4F);
    painter.setBrush(shadow);
    painter.drawRoundedRect(FormPaint::onPixels(painter, plate).translated(0, 0.8), corner, corner);
    FormPaint::drawPlate(painter, plate, corner, colours.button, colours.knobBorder);
    if (isDown() || underMouse()) {
        QColor veil = colours.pressed;
        veil.setAlphaF(veil.alphaF() * (isDown() ? 1.0F : 0.35F));
        painter.setPen(Qt::NoPen);
        painter.setBrush(veil);
        painter.drawRoundedRect(plate, corner, corner);
    }
    painter.setPen(colours.text);
    painter.drawText(plate, Qt::AlignCenter, text());
    FormPaint::drawFocusRing(painter, *this, plate, corner);
}

} // namespace quillary
