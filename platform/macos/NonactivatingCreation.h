#pragma once

namespace quillary {

/// While one lives, panels come into being as panels that never activate their program. AppKit tells the
/// window server of that when a panel is made, and no more when its style mask is set later; the toolkit
/// makes its panels without. Main thread, one at a time.
class NonactivatingCreation {
public:
    NonactivatingCreation();
    NonactivatingCreation(const NonactivatingCreation&) = delete;
    NonactivatingCreation& operator=(const NonactivatingCreation&) = delete;
    ~NonactivatingCreation();
};

} // namespace quillary
