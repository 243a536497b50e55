#include "app/view/Appearance.h"

#include <QPalette>

namespace quillary {

Appearance Appearance::of(const QPalette& palette, Blending blending) {
    constexpr float secondaryOpacity = 0.55F;
    const bool dark = palette.color(QPalette::Window).lightnessF() < 0.5F;
    const QColor text = dark ? Qt::white : Qt::black;
    QColor secondary = text;
    secondary.setAlphaF(secondaryOpacity);
    return {.primaryText = text,
            .secondaryText = secondary,
            .accent = palette.color(QPalette::Highlight),
            .shade = dark ? Shade::dark : Shade::light,
            .blending = blending};
}

} // namespace quillary
