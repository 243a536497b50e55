#pragma once

#include <QAbstractButton>

namespace quillary {

/// A button that shows a state it does not own: a click tells of the user's wish, and whoever owns the state
/// calls `setOn`. Setting the state from the program is no click.
class StateButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Kind {
        /// On or off by itself.
        toggle,
        /// One of several, of which one is on.
        choice,
    };
    StateButton(Kind kind, const QString& name, QWidget* parent = nullptr);

    [[nodiscard]] Kind kind() const { return sort; }
    [[nodiscard]] bool isOn() const { return on; }
    void setOn(bool value);

protected:
    /// The state has changed: shows it.
    virtual void stateChanged() { update(); }
    void keyPressEvent(QKeyEvent* event) override;

private:
    Kind sort;
    bool on = false;
};

} // namespace quillary
