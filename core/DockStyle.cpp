#include "core/DockStyle.h"

#include "core/Capitalised.h"

namespace quillary {

std::string title(DockStyle style) {
    return capitalised(rawValue(style));
}

} // namespace quillary
