#include "app/settings/FormFont.h"

#include <QApplication>
#include <QFont>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quillary {

namespace {

constexpr const char* roleProperty = "formTextRole";

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

} // namespace

void setTextRole(QWidget& widget, TextRole role) {
    widget.setProperty(roleProperty, static_cast<int>(role));
    widget.setFont(formFont(role));
}

void renewFormFonts(const QWidget& root) {
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (const QVariant role = widget->property(roleProperty); role.isValid()) {
            widget->setFont(formFont(static_cast<TextRole>(role.toInt())));
        }
    }
}

} // namespace quillary
