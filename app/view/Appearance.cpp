#include "app/view/Appearance.h"

#include <QPalette>

namespace quillary {

namespace {

constexpr double secondaryOpacity = 0.55;

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

} // namespace

Appearance Appearance::of(const QPalette& palette, Blending blending) {
    const bool dark = palette.color(QPalette::Window).lightnessF() < 0.5F;
    const bool blends = blending == Blending::translucent;
    const QColor text = dark ? QColor(255, 255, 255) : QColor(0, 0, 0);
    // Without blur behind, the tint must carry the contrast that a blurred wallpaper would give.
    const QColor base = dark ? QColor(38, 38, 42) : QColor(244, 245, 248);
    return {.primaryText = text,
            .secondaryText = withAlpha(text, secondaryOpacity),
            .accent = palette.color(QPalette::Highlight),
            .background = withAlpha(base, blends ? 0.55 : 1.0),
            .label = withAlpha(base, blends ? 0.92 : 1.0),
            .blending = blending};
}

} // namespace quillary
