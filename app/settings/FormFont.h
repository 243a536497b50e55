#pragma once

class QWidget;

namespace quillary {

/// The sizes of text in the form, relative to the desktop's font.
enum class TextRole { headline, sectionHeader, body, callout, caption };

/// Gives the widget the desktop's font in that role, and marks it for `renewFormFonts`.
void setTextRole(QWidget& widget, TextRole role);

/// Gives the widgets below `root` that have a role the desktop's font anew.
void renewFormFonts(const QWidget& root);

} // namespace quillary
