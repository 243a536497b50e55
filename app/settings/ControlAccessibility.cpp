#include "app/settings/ControlAccessibility.h"

#include "app/settings/ChoiceGroup.h"
#include "app/settings/FormGroup.h"
#include "app/settings/StepSlider.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace quillary {

namespace {

QAccessible::Role roleOf(const QAbstractButton& button) {
    return button.autoExclusive() ? QAccessible::RadioButton : QAccessible::CheckBox;
}

/// A StateButton whose action is a click. The action of the toolkit's interface would check the button, whose
/// state belongs to the model.
class AccessibleStateButton final : public QAccessibleWidget {
public:
    explicit AccessibleStateButton(QAbstractButton* button)
        : QAccessibleWidget(button, roleOf(*button)), m_button(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_button->isChecked();
        state.pressed = m_button->isDown();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList(clickAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == clickAction()) {
            m_button->click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    [[nodiscard]] QString clickAction() const {
        return m_button->autoExclusive() ? pressAction() : toggleAction();
    }

    QAbstractButton* m_button;
};

class AccessibleSlider final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSlider(StepSlider* slider)
        : QAccessibleWidget(slider, QAccessible::Slider), m_slider(slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? QString::number(m_slider->value())
                                          : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QVariant currentValue() const override { return m_slider->value(); }
    void setCurrentValue(const QVariant& value) override {
        bool isNumber = false;
        const double wanted = value.toDouble(&isNumber);
        if (isNumber) {
            m_slider->choose(wanted);
        }
    }
    [[nodiscard]] QVariant maximumValue() const override {
        return static_cast<double>(m_slider->scale().most);
    }
    [[nodiscard]] QVariant minimumValue() const override {
        return static_cast<double>(m_slider->scale().least);
    }
    [[nodiscard]] QVariant minimumStepSize() const override {
        return static_cast<double>(m_slider->scale().step);
    }

private:
    StepSlider* m_slider;
};

QAccessibleInterface* accessible(const QString& /*className*/, QObject* object) {
    if (auto* button = qobject_cast<QAbstractButton*>(object); button != nullptr && button->isCheckable()) {
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
