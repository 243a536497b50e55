#pragma once

#include "core/Capitalised.h"
#include "core/RawEnum.h"

#include <string>

namespace quillary {

/// The edge of its screen that a dock is attached to.
enum class DockEdge { bottom, left, right, top };

constexpr std::array<RawCase<DockEdge>, 4> rawCases(DockEdge /*table*/) {
    return {{{DockEdge::bottom, "bottom"},
             {DockEdge::left, "left"},
             {DockEdge::right, "right"},
             {DockEdge::top, "top"}}};
}

/// The name shown to the user, as in "Bottom".
[[nodiscard]] inline std::string title(DockEdge edge) {
    return capitalised(rawValue(edge));
}

/// Whether the row of icons of a dock at `edge` runs along x (bottom and top) rather than along y.
[[nodiscard]] constexpr bool isHorizontal(DockEdge edge) {
    return edge == DockEdge::bottom || edge == DockEdge::top;
}

} // namespace quillary
