#pragma once

#include <QWidget>

#include <vector>

class QRadioButton;

namespace quillary {

/// Radio buttons that are one stop of the tabulator. Arrow keys choose within the group, Home and End its
/// ends. The group shows a choice it does not own: the owner calls `setCurrent`.
class ChoiceGroup : public QWidget {
    Q_OBJECT

public:
    /// `name` is what is chosen here, for assistive technology.
    explicit ChoiceGroup(const QString& name, QWidget* parent = nullptr);

    /// Shows the choice. `index` is one of the buttons'.
    void setCurrent(int index);
    /// -1 until a choice was shown.
    [[nodiscard]] int current() const;
    [[nodiscard]] const std::vector<QRadioButton*>& buttons() const { return m_buttons; }

Q_SIGNALS:
    /// The user asks for that one, which may be the current one.
    void chosen(int index);

protected:
    /// Adds a button, a child of the group that leaves its state to `setCurrent`.
    void add(QRadioButton* button);
    virtual void currentChanged() {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(int index);
    void placeFocus();

    std::vector<QRadioButton*> m_buttons;
};

} // namespace quillary
