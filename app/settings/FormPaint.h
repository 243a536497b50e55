#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>

class QPainter;
class QWidget;

/// What the parts of the settings form draw alike. Points, in the painter's coordinates.
namespace quillary::FormPaint {

/// How far a focus ring reaches beyond what it surrounds; widgets keep this much room around themselves.
inline constexpr int ringReach = 4;

/// The rectangle, its sides moved to whole device pixels.
[[nodiscard]] QRectF onPixels(const QPainter& painter, const QRectF& rect);

/// Draws a horizontal line of one device pixel, whose upper side is at the pixel next to `start`.
void drawLine(QPainter& painter, QPointF start, double length, const QColor& colour);

/// Fills a rounded rectangle and draws a border of one device pixel, at least, inside of it.
void drawPlate(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
               const QColor& border);

/// A white round knob with a soft shadow below it.
void drawKnob(QPainter& painter, const QWidget& widget, const QRectF& circle);

/// A ring in the accent colour around the rectangle when the widget has the focus and the user got there by
/// the keyboard.
void drawFocusRing(QPainter& painter, const QWidget& widget, const QRectF& around, double radius);

} // namespace quillary::FormPaint
