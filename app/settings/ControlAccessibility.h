#pragma once

namespace quillary {

/// Installs what describes the form's controls to assistive technology: switches as check boxes, segments and
/// tiles as radio buttons in named groups, the slider with its value and range. Call it before the first such
/// control is created; further calls do nothing.
void installControlAccessibility();

} // namespace quillary
