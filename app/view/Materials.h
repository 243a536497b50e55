#pragma once

#include "platform/Shade.h"

#include <QColor>

namespace quillary {

/// The material of a dock's surfaces: a tint over what lies below, which is blurred where the desktop blurs
/// behind windows.
enum class Material {
    none,
    /// Lets much of what lies below through.
    ultraThin,
    /// Lets less through.
    regular,
};

/// What the desktop does with the translucent parts of windows.
enum class Blending {
    /// Blended with a blurred picture of what lies below.
    blurred,
    /// Blended with what lies below as it is.
    translucent,
    /// Not blended: every pixel that is seen is opaque.
    opaque,
};

/// The tint of a material. Without blur it is denser, as it alone must keep icons and texts readable.
[[nodiscard]] QColor tint(Material material, Shade shade, Blending blending);

} // namespace quillary
