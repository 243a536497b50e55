#pragma once

#include <QColor>

class QPalette;

namespace quillary {

/// The colours of the settings form, all made from the desktop's window, text and accent colours, so that
/// they follow any palette, light or dark. Text, separators and grooves lie on a group, a group on the
/// window.
struct FormColours {
    QColor group;
    QColor groupBorder;
    QColor separator;
    QColor text;
    QColor secondaryText;
    QColor accent;
    /// The groove of a slider and under segments.
    QColor track;
    /// Text on such a groove: at least 4.5:1 against it on an ordinary desktop (WCAG 2.1, 1.4.3).
    QColor trackText;
    /// The groove of a switch that is off: at least 3:1 against the group (WCAG 2.1, 1.4.11).
    QColor switchOff;
    QColor trackBorder;
    /// What slides in a groove: the knob of a switch or a slider.
    QColor knob;
    QColor knobBorder;
    QColor knobShadow;
    /// The chosen segment.
    QColor raised;
    QColor button;
    /// Laid over a part while it is pressed.
    QColor pressed;

    bool operator==(const FormColours&) const = default;

    [[nodiscard]] static FormColours of(const QPalette& palette);
};

/// The opaque colour between two; `share`: 0 is `from`, 1 is `to`.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, float share);

} // namespace quillary
