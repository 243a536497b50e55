#pragma once

#include "app/DockCell.h"
#include "app/DockGeometry.h"

#include <vector>

namespace quillary {

/// The cells of a dock in display order and the layout made from them. Neither depends on the pointer.
struct DockRow {
    std::vector<DockCell> cells;
    DockGeometry geometry;

    bool operator==(const DockRow&) const = default;
};

} // namespace quillary
