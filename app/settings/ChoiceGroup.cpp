#include "app/settings/ChoiceGroup.h"

#include <QKeyEvent>
#include <QRadioButton>

#include <algorithm>
#include <optional>

namespace quillary {

ChoiceGroup::ChoiceGroup(const QString& name, QWidget* parent) : QWidget(parent) {
    setAccessibleName(name);
}

void ChoiceGroup::add(QRadioButton* button) {
    const int index = static_cast<int>(m_buttons.size());
    m_buttons.push_back(button);
    connect(button, &QAbstractButton::clicked, this, [this, index] { Q_EMIT chosen(index); });
    placeFocus();
}

int ChoiceGroup::current() const {
    const auto checked = std::ranges::find_if(m_buttons, &QAbstractButton::isChecked);
    return checked == m_buttons.end() ? -1 : static_cast<int>(std::distance(m_buttons.begin(), checked));
}

void ChoiceGroup::setCurrent(int index) {
    if (index == current()) {
        return;
    }
    m_buttons.at(static_cast<std::size_t>(index))->setChecked(true);
    placeFocus();
    currentChanged();
}

// The Tab key stops at the current button, or at the first when none is. The toolkit's rule for radio buttons
// is the one that had the focus last.
void ChoiceGroup::placeFocus() {
    const auto stop = static_cast<std::size_t>(std::max(current(), 0));
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        m_buttons[i]->setFocusPolicy(i == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void ChoiceGroup::choose(int index) {
    m_buttons[static_cast<std::size_t>(index)]->setFocus(Qt::TabFocusReason);
    if (index != current()) {
        Q_EMIT chosen(index);
    }
}

void ChoiceGroup::keyPressEvent(QKeyEvent* event) {
    const auto focused = std::ranges::find_if(m_buttons, &QWidget::hasFocus);
    if (focused == m_buttons.end()) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int at = static_cast<int>(std::distance(m_buttons.begin(), focused));
    const int last = static_cast<int>(m_buttons.size()) - 1;
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    std::optional<int> target;
    switch (event->key()) {
    case Qt::Key_Left:
        target = at - forward;
        break;
    case Qt::Key_Up:
        target = at - 1;
        break;
    case Qt::Key_Down:
        target = at + 1;
        break;
    case Qt::Key_Right:
        target = at + forward;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = last;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    choose(std::clamp(*target, 0, last));
}

} // namespace quillary
