#pragma once

#include <QLabel>

namespace quillary {

/// The sizes of text in the form, relative to the desktop's font.
enum class TextRole { headline, sectionHeader, body, callout, caption };
enum class TextTone { primary, secondary };

/// The desktop's font in that role.
[[nodiscard]] QFont formFont(TextRole role);

/// A plain text of the form. It wraps, and follows the desktop's font and colours.
class FormLabel : public QLabel {
    Q_OBJECT

public:
    FormLabel(const QString& text, TextRole role, TextTone tone, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TextRole role;
    TextTone tone;
};

} // namespace quillary
