#include "platform/linux/icons/PlainIcon.h"

#include <QIconEngine>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace quillary {

namespace {

// Drawn in a unit square and scaled to the requested size.
class PlainIconEngine final : public QIconEngine {
public:
    explicit PlainIconEngine(PlainIconShape shape) : m_shape(shape) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width(), rect.height());
        painter->setPen(Qt::NoPen);
        QLinearGradient shade(0.0, 0.0, 0.0, 1.0);
        const bool isFolder = m_shape == PlainIconShape::folder;
        shade.setColorAt(0.0, isFolder ? QColor(0x9c, 0xc4, 0xf2) : QColor(0xfa, 0xfa, 0xfa));
        shade.setColorAt(1.0, isFolder ? QColor(0x5a, 0x92, 0xd6) : QColor(0xc4, 0xc8, 0xcc));
        painter->setBrush(shade);
        painter->drawPath(outline());
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return result;
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {{16, 16}, {32, 32}, {48, 48}, {64, 64}, {128, 128}, {256, 256}, {512, 512}};
    }

    bool isNull() override { return false; }

    [[nodiscard]] QIconEngine* clone() const override { return new PlainIconEngine(m_shape); }

private:
    [[nodiscard]] QPainterPath outline() const {
        QPainterPath path;
        switch (m_shape) {
        case PlainIconShape::application:
            path.addRoundedRect(QRectF(0.08, 0.08, 0.84, 0.84), 0.19, 0.19);
            break;
        case PlainIconShape::folder:
            path.addRoundedRect(QRectF(0.08, 0.16, 0.38, 0.3), 0.05, 0.05);
            path.addRoundedRect(QRectF(0.08, 0.25, 0.84, 0.6), 0.05, 0.05);
            path.setFillRule(Qt::WindingFill);
            break;
        case PlainIconShape::document:
            path.addPolygon(
                QPolygonF({{0.2, 0.06}, {0.6, 0.06}, {0.8, 0.26}, {0.8, 0.94}, {0.2, 0.94}, {0.2, 0.06}}));
            break;
        }
        return path;
    }

    PlainIconShape m_shape;
};

} // namespace

QIcon plainIcon(PlainIconShape shape) {
    return QIcon(new PlainIconEngine(shape));
}

} // namespace quillary
