#pragma once

#include "app/view/Materials.h"

#include <QColor>

class QPalette;

namespace quillary {

/// The colours that a dock takes from the desktop, and what the desktop can blend.
struct Appearance {
    QColor primaryText;
    QColor secondaryText;
    QColor accent;
    Shade shade = Shade::light;
    Blending blending = Blending::translucent;

    bool operator==(const Appearance&) const = default;

    [[nodiscard]] QColor fill(Material material) const { return tint(material, shade, blending); }

    [[nodiscard]] static Appearance of(const QPalette& palette, Blending blending);
};

} // namespace quillary
