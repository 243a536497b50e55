#include "app/view/DockFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>

namespace quillary::DockFonts {

namespace {

constexpr int textSize = 12;
constexpr int leastHintSize = 8;

QFont systemFont(int size, QFont::Weight weight) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

} // namespace

QFont label() {
    return systemFont(textSize, QFont::Medium);
}

QFont hint(const QString& text, QSizeF room) {
    QFont font = systemFont(textSize, QFont::Normal);
    const QRectF within(QPointF(), room);
    const auto fits = [&] {
        return within.contains(QFontMetricsF(font).boundingRect(within, hintLayout, text));
    };
    for (int size = textSize; size > leastHintSize && !fits();) {
        font.setPixelSize(--size);
    }
    return font;
}

QFont pill() {
    QFont font = systemFont(pillSize, QFont::Bold);
    // Hinting would round the widths of letters to whole pixels.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace quillary::DockFonts
