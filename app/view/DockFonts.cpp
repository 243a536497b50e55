#include "app/view/DockFonts.h"

#include <QFontDatabase>

namespace quillary::DockFonts {

namespace {

constexpr int textSize = 12;

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

QFont hint() {
    return systemFont(textSize, QFont::Normal);
}

QFont pill() {
    QFont font = systemFont(pillSize, QFont::Bold);
    // Hinting would round the widths of letters to whole pixels.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace quillary::DockFonts
