#include "app/settings/ControlAccessibility.h"

#include "app/settings/ChoiceGroup.h"
#include "app/settings/FormGroup.h"
#include "app/settings/StateButton.h"
#include "app/settings/StepSlider.h"

#include <QAccessibleWidget>

namespace quillary {

namespace {

class AccessibleStateButton final : public QAccessibleWidget {
public:
    explicit AccessibleStateButton(StateButton* control)
        : QAccessibleWidget(control, control->kind() == StateButton::Kind::toggle ? QAccessible::CheckBox
                                                                                  : QAccessible::RadioButton),
          button(control) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button->isOn();
        state.pressed = button->isDown();
        // Also those that the tabulator passes by, which arrow keys reach.
        state.focusable = true;
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList(mainAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == mainAction()) {
            button->click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    [[nodiscard]] QString mainAction() const {
        return button->kind() == StateButton::Kind::toggle ? toggleAction() : pressAction();
    }

    StateButton* button;
};

class AccessibleSlider final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(StepSlider* control)
        : QAccessibleWidget(control, QAccessible::Slider), slider(control) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? QString::number(slider->value()) : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QVariant currentValue() const override { return slider->value(); }
    void setCurrentValue(const QVariant& value) override {
        bool isNumber = false;
        const double wanted = value.toDouble(&isNumber);
        if (isNumber) {
            slider->choose(wanted);
        }
    }
    [[nodiscard]] QVariant maximumValue() const override { return double{1} * slider->scale().most; }
    [[nodiscard]] QVariant minimumValue() const override { return double{1} * slider->scale().least; }
    [[nodiscard]] QVariant minimumStepSize() const override { return double{1} * slider->scale().step; }

private:
    StepSlider* slider;
};

QAccessibleInterface* accessible(const QString& /*className*/, QObject* object) {
    if (auto* button = qobject_cast<StateButton*>(object)) {
        return new AccessibleStateButton(button);
    }
    if (auto* slider = qobject_cast<StepSlider*>(object)) {
        return new AccessibleSlider(slider);
    }
    auto* widget = qobject_cast<QWidget*>(object);
    if (qobject_cast<ChoiceGroup*>(object) != nullptr || qobject_cast<FormGroup*>(object) != nullptr) {
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    }
    return nullptr;
}

} // namespace

void installControlAccessibility() {
    static bool installed = false;
    if (!installed) {
        installed = true;
        QAccessible::installFactory(accessible);
    }
}

} // namespace quillary
