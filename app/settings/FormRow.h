#pragma once

#include <QWidget>

class QAbstractButton;

namespace quillary {

/// One row of a group: a label at the left, a control at the right, or below where the row is too narrow for
/// both. Where the control is a button, a click on the label clicks it.
class FormRow : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of the control.
    FormRow(const QString& label, QWidget* control, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QWidget* m_words;
    QAbstractButton* m_button;
    bool m_pressed = false;
};

/// The room between a group's border and what its rows hold, points.
inline constexpr int rowPadding = 12;
/// The same above and below, around text.
inline constexpr int rowMargin = 9;

} // namespace quillary
