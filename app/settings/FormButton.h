#pragma once

#include <QPushButton>

namespace quillary {

/// A push button in the form's own look.
class FormButton : public QPushButton {
    Q_OBJECT

public:
    explicit FormButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillary
