#pragma once

#include "app/settings/FormFont.h"

#include <QLabel>

namespace quillary {

enum class TextTone { primary, secondary };

/// A plain text of the form. It wraps, and follows the desktop's font and colours.
class FormLabel : public QLabel {
    Q_OBJECT

public:
    FormLabel(const QString& text, TextRole role, TextTone tone, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextTone m_tone;
};

} // namespace quillary
