#include "app/StatusSymbol.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cmath>

namespace quillary {

namespace {

constexpr std::array sizes = {16, 20, 22, 24, 32, 44, 48, 64, 96, 128};

// In sixteenths of the symbol's side.
constexpr double grid = 16;
constexpr double screenTop = 2;
constexpr double screenBottom = 14;
constexpr double screenRadius = 2.4;
constexpr double dockInset = 2;
constexpr double dockHeight = 2.6;
constexpr double dockGap = 1.2;

const QColor frame(236, 239, 245);
const QColor glass(44, 54, 78);

struct Outline {
    QRectF screen;
    double radius;
    double line;
    QRectF dock;
};

Outline outlineFor(int side) {
    const double unit = side / grid;
    // Whole pixels, so that no line is smeared over two.
    const auto snapped = [unit](double units) { return std::round(units * unit); };
    const double line = std::max(1.0, snapped(1.2));
    const QRectF outer(QPointF(line / 2, snapped(screenTop) + line / 2),
                       QPointF(side - line / 2, snapped(screenBottom) - line / 2));
    const double bottom = snapped(screenBottom) - line - std::max(1.0, snapped(dockGap));
    const double height = std::max(2.0, snapped(dockHeight));
    const double inset = snapped(dockInset) + line;
    return {.screen = outer,
            .radius = screenRadius * unit,
            .line = line,
            .dock = QRectF(inset, bottom - height, side - 2 * inset, height)};
}

QPixmap symbol(int side) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const Outline outline = outlineFor(side);
    painter.setPen(QPen(frame, outline.line));
    painter.setBrush(glass);
    painter.drawRoundedRect(outline.screen, outline.radius, outline.radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(frame);
    painter.drawRoundedRect(outline.dock, outline.dock.height() / 2, outline.dock.height() / 2);
    return picture;
}

} // namespace

QIcon statusSymbol() {
    QIcon icon;
    for (const int side : sizes) {
        icon.addPixmap(symbol(side));
    }
    return icon;
}

} // namespace quillary
