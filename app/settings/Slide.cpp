#include "app/settings/Slide.h"

#include <QStyle>
#include <QWidget>

#include <utility>

namespace quillary {

namespace {

constexpr int duration = 160;

} // namespace

Slide::Slide(QWidget& widget, QVariant value) : m_widget(widget), m_value(std::move(value)) {
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    m_animation.setDuration(duration);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &widget, [this](const QVariant& step) {
        m_value = step;
        m_widget.update();
    });
}

void Slide::moveTo(const QVariant& target) {
    // A style reports by this hint that animations are switched off.
    if (!m_widget.isVisible() ||
        m_widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &m_widget) <= 0) {
        jumpTo(target);
        return;
    }
    m_animation.stop();
    const QVariant start = m_value;
    m_animation.setStartValue(start);
    m_animation.setEndValue(target);
    m_animation.start();
}

void Slide::jumpTo(const QVariant& target) {
    m_animation.stop();
    m_value = target;
    m_widget.update();
}

} // namespace quillary
