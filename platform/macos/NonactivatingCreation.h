#pragma once

namespace quillary {

/// During its lifetime, every NSPanel is created with the style mask of panels that never activate their
/// program. AppKit passes that property to the window server only when a panel is created, and Qt creates its
/// panels without it. Main thread only, one object at a time.
class NonactivatingCreation {
public:
    NonactivatingCreation();
    NonactivatingCreation(const NonactivatingCreation&) = delete;
    NonactivatingCreation& operator=(const NonactivatingCreation&) = delete;
    ~NonactivatingCreation();
};

} // namespace quillary
