#pragma once

#include <QKeyEvent>
#include <QString>

namespace quillary {

/// A check box or radio button that shows a state it does not own: a click only emits `clicked`, and the
/// owner of the state answers with `setChecked`. The whole widget takes clicks, and Return clicks as well.
///
/// `Button`: QCheckBox or QRadioButton.
template<typename Button>
class StateButton : public Button {
public:
    StateButton(const QString& name, QWidget* parent) : Button(name, parent) {
        this->setAccessibleName(name);
        this->setFocusPolicy(Qt::StrongFocus);
        // Styles add margins for the indicator that they would draw.
        this->setAttribute(Qt::WA_LayoutUsesWidgetRect);
    }

protected:
    void nextCheckState() override {}
    [[nodiscard]] bool hitButton(const QPoint& place) const override { return this->rect().contains(place); }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!event->isAutoRepeat()) {
                this->click();
            }
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            // The toolkit would move the focus to the nearest button. The group or the form handles these.
            event->ignore();
            break;
        default:
            Button::keyPressEvent(event);
        }
    }
};

} // namespace quillary
