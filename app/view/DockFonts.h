#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

namespace quillary::DockFonts {

/// Hover labels: the system's font, 12 points of the screen, medium weight.
[[nodiscard]] QFont label();
/// The hint of an empty dock: 12 points of the screen, or as many as its wrapped text has room for, but at
/// least 8.
[[nodiscard]] QFont hint(const QString& text, QSizeF room);
inline constexpr int hintLayout = Qt::AlignCenter | Qt::TextWordWrap;
/// Memory figures on icons: bold, `pillSize` points of the screen. Fonts have whole sizes only; text of
/// another size is measured and drawn in this one and scaled, so that it grows evenly with its icon.
[[nodiscard]] QFont pill();
inline constexpr int pillSize = 32;

} // namespace quillary::DockFonts
