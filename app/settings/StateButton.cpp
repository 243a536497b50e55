#include "app/settings/StateButton.h"

#include <QAccessible>
#include <QKeyEvent>

namespace quillary {

StateButton::StateButton(Kind kindOf, const QString& name, QWidget* parent)
    : QAbstractButton(parent), sort(kindOf) {
    setText(name);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
}

void StateButton::setOn(bool value) {
    if (value == on) {
        return;
    }
    on = value;
    stateChanged();
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void StateButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat()) {
            click();
        }
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        // Not the toolkit's: it would move the focus through all buttons around. The parent knows what these
        // mean.
        event->ignore();
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace quillary
