#include "app/settings/FormLabel.h"

#include "app/settings/FormColours.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

double growth(TextRole role) {
    switch (role) {
    case TextRole::headline:
        return 1.2;
    case TextRole::sectionHeader:
        return 1.05;
    case TextRole::body:
        break;
    case TextRole::callout:
        return 0.93;
    case TextRole::caption:
        return 0.85;
    }
    return 1;
}

QFont::Weight weight(TextRole role) {
    return role == TextRole::headline        ? QFont::Bold
           : role == TextRole::sectionHeader ? QFont::DemiBold
                                             : QFont::Normal;
}

} // namespace

QFont formFont(TextRole role) {
    QFont font = QApplication::font();
    font.setWeight(weight(role));
    // A font has its size in points or in pixels.
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * growth(role));
    } else {
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * growth(role)))));
    }
    return font;
}

FormLabel::FormLabel(const QString& text, TextRole textRole, TextTone textTone, QWidget* parent)
    : QLabel(text, parent), role(textRole), tone(textTone) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(formFont(role));
}

bool FormLabel::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(formFont(role));
    }
    return QLabel::event(event);
}

void FormLabel::paintEvent(QPaintEvent* /*event*/) {
    const FormColours colours = FormColours::of(palette());
    QPalette inks = palette();
    inks.setColor(QPalette::WindowText, tone == TextTone::secondary ? colours.secondaryText : colours.text);
    QPainter painter(this);
    const int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                      (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
    style()->drawItemText(&painter, contentsRect(), flags, inks, true, text(), QPalette::WindowText);
}

} // namespace quillary
