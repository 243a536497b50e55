#pragma once

class QColor;

namespace quillary {

/// Whether a surface is light or dark, which decides the colour of what lies on it.
enum class Shade { light, dark };

/// The shade of a surface of that colour: dark below a lightness (HSL) of one half.
[[nodiscard]] Shade shadeOf(const QColor& surface);

} // namespace quillary
