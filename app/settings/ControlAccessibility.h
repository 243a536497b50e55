#pragma once

namespace quillary {

/// Makes the form's controls known to assistive technology: switches as check boxes, segments and tiles as
/// radio buttons in named groups, the slider with its value and range. Call it before such a control is made;
/// it installs itself once a process.
void installControlAccessibility();

} // namespace quillary
