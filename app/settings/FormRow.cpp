#include "app/settings/FormRow.h"

#include "app/settings/FormLabel.h"
#include "app/settings/FormPaint.h"
#include "app/settings/TwoEndsLayout.h"

#include <QAbstractButton>
#include <QMouseEvent>

namespace quillary {

namespace {

constexpr int leastHeight = 40;
constexpr int gap = 16;
constexpr int controlMargin = 3;

} // namespace

FormRow::FormRow(const QString& label, QWidget* control, QWidget* parent)
    : QWidget(parent),
      m_words(new FormLabel(label, TextRole::body, TextTone::primary, this)),
      m_button(qobject_cast<QAbstractButton*>(control)) {
    auto* layout = new TwoEndsLayout(this);
    // Controls include room for a focus ring, which overlaps the padding; texts do not.
    const int ring = qobject_cast<FormLabel*>(control) != nullptr ? 0 : FormPaint::ringReach;
    layout->setContentsMargins(rowPadding, controlMargin, rowPadding - ring, controlMargin);
    layout->setSpacing(gap);
    layout->addWidget(m_words);
    layout->addWidget(control);
    layout->setAlignment(control, Qt::AlignVCenter);
    m_words->setMinimumHeight(leastHeight - 2 * controlMargin);
}

void FormRow::mousePressEvent(QMouseEvent* event) {
    m_pressed =
        event->button() == Qt::LeftButton && m_words->geometry().contains(event->position().toPoint());
}

void FormRow::mouseReleaseEvent(QMouseEvent* event) {
    const bool released = m_pressed && event->button() == Qt::LeftButton;
    m_pressed = m_pressed && !released;
    if (released && m_button != nullptr && m_words->geometry().contains(event->position().toPoint())) {
        m_button->click();
    }
}

} // namespace quillary
