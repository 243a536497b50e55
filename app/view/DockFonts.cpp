#include "app/view/DockFonts.h"

#include <QFontDatabase>

#include <algorithm>
#include <cmath>

namespace quillary::DockFonts {

namespace {

constexpr int labelSize = 12;

QFont systemFont(double size, QFont::Weight weight) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
    font.setWeight(weight);
    return font;
}

} // namespace

QFont label() {
    return systemFont(labelSize, QFont::Medium);
}

QFont hint() {
    return systemFont(labelSize, QFont::Normal);
}

QFont pill(double size) {
    return systemFont(size, QFont::Bold);
}

} // namespace quillary::DockFonts
