#pragma once

#include <QWidget>

#include <vector>

namespace quillary {

class StateButton;

/// Buttons of which one is on. It is one stop of the tabulator; arrow keys choose within it, Home and End its
/// ends. It shows a choice it does not own: whoever does calls `setCurrent`.
class ChoiceGroup : public QWidget {
    Q_OBJECT

public:
    /// `name` is what is chosen here, for assistive technology.
    explicit ChoiceGroup(const QString& name, QWidget* parent = nullptr);

    /// Shows the choice; out of range means none.
    void setCurrent(int index);
    [[nodiscard]] int current() const { return shown; }
    [[nodiscard]] const std::vector<StateButton*>& buttons() const { return members; }

Q_SIGNALS:
    /// The user asks for that one, which may be the current one.
    void chosen(int index);

protected:
    /// Adds a button that is a child of the group.
    void add(StateButton* button);
    virtual void currentChanged() {}
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(int index);
    void placeFocus();

    std::vector<StateButton*> members;
    int shown = -1;
};

} // namespace quillary
