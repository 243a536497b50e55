#include "app/settings/StyleTile.h"

#include "app/settings/FormColours.h"
#include "app/settings/FormFont.h"
#include "app/settings/FormPaint.h"
#include "app/settings/MiniatureDock.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace quillary {

namespace {

constexpr double corner = 8;
constexpr int nameGap = 6;
constexpr double outlineWidth = 2.5;
const QColor indigo(88, 86, 214, 179);
const QColor teal(48, 176, 199, 153);

} // namespace

StyleTile::StyleTile(DockStyle style, QWidget* parent)
    : StateButton(QString::fromStdString(title(style)), parent),
      m_style(style),
      m_miniature(std::make_unique<MiniatureDock>(style)) {
    setTextRole(*this, TextRole::caption);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

StyleTile::~StyleTile() = default;

QSize StyleTile::sizeHint() const {
    constexpr int ring = 2 * FormPaint::ringReach;
    const int below = nameGap + fontMetrics().height();
    const QSize around = previewSize.toSize() + QSize(ring, ring / 2 + below);
    return around.expandedTo({fontMetrics().size(Qt::TextSingleLine, text()).width() + ring, 0});
}

void StyleTile::drawPreview(QPainter& painter, const QRectF& preview) {
    QPainterPath outline;
    outline.addRoundedRect(preview, corner, corner);
    QLinearGradient desktop(preview.topLeft(), preview.bottomLeft());
    desktop.setColorAt(0, indigo);
    desktop.setColorAt(1, teal);
    painter.setPen(Qt::NoPen);
    painter.setBrush(desktop);
    painter.drawPath(outline);
    const double ratio = painter.device()->devicePixelRatioF();
    if (m_dock.isNull() || m_dock.devicePixelRatio() != ratio || m_dockPalette != palette().cacheKey()) {
        m_dock = m_miniature->picture(previewSize, ratio, palette());
        m_dockPalette = palette().cacheKey();
    }
    painter.drawImage(FormPaint::onPixels(painter, preview).topLeft(), m_dock);
}

void StyleTile::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int ring = FormPaint::ringReach;
    const QRectF preview({std::floor((width() - previewSize.width()) / 2), ring}, previewSize);
    drawPreview(painter, preview);
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.pressed);
        painter.drawRoundedRect(preview, corner, corner);
    }
    if (isChecked()) {
        painter.setPen(QPen(colours.accent, outlineWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(preview, corner, corner);
    }
    FormPaint::drawFocusRing(painter, *this, preview, corner);
    painter.setPen(isChecked() ? colours.text : colours.secondaryText);
    const QRectF below(0, preview.bottom() + nameGap, width(), fontMetrics().height());
    painter.drawText(below, Qt::AlignCenter, text());
}

} // namespace quillary
