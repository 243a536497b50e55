#include "app/settings/ChoiceGroup.h"

#include "app/settings/StateButton.h"

#include <QKeyEvent>

#include <algorithm>
#include <optional>

namespace quillary {

ChoiceGroup::ChoiceGroup(const QString& name, QWidget* parent) : QWidget(parent) {
    setAccessibleName(name);
}

void ChoiceGroup::add(StateButton* button) {
    const int index = static_cast<int>(members.size());
    members.push_back(button);
    connect(button, &QAbstractButton::clicked, this, [this, index] { Q_EMIT chosen(index); });
    placeFocus();
}

void ChoiceGroup::setCurrent(int index) {
    if (index == shown) {
        return;
    }
    shown = index;
    for (std::size_t i = 0; i < members.size(); ++i) {
        members[i]->setOn(static_cast<int>(i) == index);
    }
    placeFocus();
    currentChanged();
}

// The tabulator stops at the one that is on, or at the first when none is.
void ChoiceGroup::placeFocus() {
    const int stop = shown >= 0 && shown < static_cast<int>(members.size()) ? shown : 0;
    for (std::size_t i = 0; i < members.size(); ++i) {
        members[i]->setFocusPolicy(static_cast<int>(i) == stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void ChoiceGroup::choose(int index) {
    members[static_cast<std::size_t>(index)]->setFocus(Qt::TabFocusReason);
    if (index != shown) {
        Q_EMIT chosen(index);
    }
}

void ChoiceGroup::keyPressEvent(QKeyEvent* event) {
    const auto focused = std::ranges::find_if(members, [](const auto* button) { return button->hasFocus(); });
    if (focused == members.end()) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int at = static_cast<int>(std::distance(members.begin(), focused));
    const int last = static_cast<int>(members.size()) - 1;
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
