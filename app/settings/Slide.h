#pragma once

#include <QVariantAnimation>

class QWidget;

namespace quillary {

/// A value that slides to the next one in 160 ms, easing out, and repaints its widget at each step. Where the
/// widget is not visible, or the desktop's style has animations switched off, it changes at once.
class Slide {
public:
    /// The widget must outlive it.
    Slide(QWidget& widget, QVariant value);

    [[nodiscard]] const QVariant& value() const { return m_value; }
    void moveTo(const QVariant& target);
    /// Changes the value without an animation.
    void jumpTo(const QVariant& target);

private:
    QWidget& m_widget;
    QVariant m_value;
    QVariantAnimation m_animation;
};

} // namespace quillary
