#pragma once

#include <QColor>

class QPalette;

namespace quillary {

/// The colours that a dock takes from the desktop, and what the desktop can blend.
struct Appearance {
    enum class Blending {
        /// Translucent windows are blended with what lies below.
        translucent,
        /// They are not: every pixel that is seen is opaque.
        opaque,
    };

    QColor primaryText;
    QColor secondaryText;
    QColor accent;
    /// Fills of the dock's background and of the label.
    QColor background;
    QColor label;
    Blending blending = Blending::translucent;

    bool operator==(const Appearance&) const = default;

    [[nodiscard]] static Appearance of(const QPalette& palette, Blending blending);
};

} // namespace quillary
