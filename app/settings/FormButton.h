#pragma once

#include <QPushButton>

namespace quillary {

/// A push button in the form's own look. Its title wraps where there is no room for it in one line.
class FormButton : public QPushButton {
    Q_OBJECT

public:
    explicit FormButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    /// With room for the longest word.
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillary
