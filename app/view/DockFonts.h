#pragma once

#include <QFont>

namespace quillary::DockFonts {

/// Hover labels: the system's font, 12 points of the screen, medium weight.
[[nodiscard]] QFont label();
/// The hint of an empty dock: 12 points of the screen.
[[nodiscard]] QFont hint();
/// Memory figures on icons: bold, `pillSize` points of the screen. Fonts have whole sizes only; text of
/// another size is measured and drawn in this one and scaled, so that it grows evenly with its icon.
[[nodiscard]] QFont pill();
inline constexpr int pillSize = 32;

} // namespace quillary::DockFonts
