#include "app/view/Appearance.h"

#include <QPalette>

namespace quillary {

Shade shadeOf(const QPalette& palette) {
    constexpr float middle = 0.5F;
    return palette.color(QPalette::Window).lightnessF() < middle ? Shade::dark : Shade::light;
}

Appearance Appearance::of(const QPalette& palette, Blending blending) {
    constexpr float secondaryOpacity = 0.55F;
    const Shade shade = shadeOf(palette);
    const QColor text = shade == Shade::dark ? Qt::white : Qt::black;
    QColor secondary = text;
    secondary.setAlphaF(secondaryOpacity);
    return {.primaryText = text,
            .secondaryText = secondary,
            .accent = palette.color(QPalette::Highlight),
            .shade = shade,
            .blending = blending};
}

} // namespace quillary
