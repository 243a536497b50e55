#pragma once

#include <QWidget>

#include <vector>

class QRadioButton;

namespace quillary {

/// Radio buttons that are one stop of the Tab key. The arrow keys choose the neighbour of the focused button,
/// Home and End the first and the last. The group shows a choice that it does not own: the owner calls
/// `setCurrent`.
class ChoiceGroup : public QWidget {
    Q_OBJECT

public:
    /// `name`: what is chosen, as assistive technology reads it.
    explicit ChoiceGroup(const QString& name, QWidget* parent = nullptr);

    /// Checks the button at `index`, which must exist, and unchecks the others. `chosen` is not emitted.
    void setCurrent(int index);
    /// The index of the checked button; -1 when none is.
    [[nodiscard]] int current() const;
    [[nodiscard]] const std::vector<QRadioButton*>& buttons() const { return m_buttons; }

Q_SIGNALS:
    /// The user chose a button, perhaps the current one.
    void chosen(int index);

protected:
    /// Appends a child of the group that does not check itself when clicked (see StateButton).
    void add(QRadioButton* button);
    virtual void currentChanged() {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(int index);
    void placeFocus();

    std::vector<QRadioButton*> m_buttons;
};

} // namespace quillary
