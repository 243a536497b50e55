#pragma once

#include <QFont>

namespace quillary::DockFonts {

/// Hover labels: the system's font, 12 points of the screen, medium weight.
[[nodiscard]] QFont label();
/// The hint of an empty dock: 12 points of the screen.
[[nodiscard]] QFont hint();
/// Memory figures on icons: bold, that many points of the screen.
[[nodiscard]] QFont pill(double size);

} // namespace quillary::DockFonts
