#pragma once

#include "core/RawEnum.h"

#include <string>

namespace quillary {

/// How a dock looks.
enum class DockStyle { glass, pill, bubbles, minimal, shelf };

constexpr std::array<RawCase<DockStyle>, 5> rawCases(DockStyle /*table*/) {
    return {{{DockStyle::glass, "glass"},
             {DockStyle::pill, "pill"},
             {DockStyle::bubbles, "bubbles"},
             {DockStyle::minimal, "minimal"},
             {DockStyle::shelf, "shelf"}}};
}

/// The name shown to the user, as in "Glass".
[[nodiscard]] std::string title(DockStyle style);

} // namespace quillary
