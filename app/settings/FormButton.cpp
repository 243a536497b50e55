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

/// The size of a button with a title of that size.
QSize sizeAround(QSize title) {
    constexpr int ring = 2 * FormPaint::ringReach;
    return {title.width() + 2 * padX + ring, std::max(title.height() + 2 * padY, leastHeight) + ring};
}

} // namespace

FormButton::FormButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
    setTextRole(*this, TextRole::body);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize FormButton::sizeHint() const {
    return sizeAround(fontMetrics().size(Qt::TextSingleLine, text()));
}

QSize FormButton::minimumSizeHint() const {
    int widest = 0;
    for (const QString& word : text().split(u' ')) {
        widest = std::max(widest, fontMetrics().size(Qt::TextSingleLine, word).width());
    }
    return sizeAround({widest, fontMetrics().height()});
}

int FormButton::heightForWidth(int width) const {
    if (width >= sizeHint().width()) {
        return sizeHint().height();
    }
    const QRect room(0, 0, width - sizeAround({}).width(), QWIDGETSIZE_MAX);
    return sizeAround(fontMetrics().boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, text()).size())
        .height();
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
    // A title that fits is drawn as it was measured: wrapping could round its width differently.
    const bool wraps = width() < sizeHint().width();
    const QRectF room = wraps ? plate.adjusted(padX, 0, -padX, 0) : plate;
    painter.drawText(room, wraps ? Qt::AlignCenter | Qt::TextWordWrap : Qt::AlignCenter, text());
    FormPaint::drawFocusRing(painter, *this, plate, corner);
}

} // namespace quillary
