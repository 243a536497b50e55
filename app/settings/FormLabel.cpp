#include "app/settings/FormLabel.h"

#include "app/settings/FormColours.h"

#include <QPainter>
#include <QStyle>

namespace quillary {

FormLabel::FormLabel(const QString& text, TextRole role, TextTone tone, QWidget* parent)
    : QLabel(text, parent), m_tone(tone) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextRole(*this, role);
}

void FormLabel::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPalette inks = palette();
    inks.setColor(QPalette::WindowText, m_tone == TextTone::secondary ? colours.secondaryText : colours.text);
    QPainter painter(this);
    const int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                      (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
    style()->drawItemText(&painter, contentsRect(), flags, inks, true, text(), QPalette::WindowText);
}

} // namespace quillary
