#include "app/view/Appearance.h"

#include <QPalette>

namespace quillary {

Appearance Appearance::of(const QPalette& palette, Blending blending) {
    constexpr float secondaryOpacity = 0.55F;
    const Shade shade = shadeOf(palette.color(QPalette::Window));
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
