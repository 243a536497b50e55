#pragma once

namespace quillary {

/// Tells assistive technology what the form's own controls are: switches as check boxes, segments and tiles
/// as radio buttons in named groups, the slider with its value and range. Once for the process, before such a
/// control is made; further calls do nothing.
void installControlAccessibility();

} // namespace quillary
