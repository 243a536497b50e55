#pragma once

#include <cstddef>
#include <string>
#include <tuple>

namespace quillary {

/// The identity of an item on a dock. A configuration can hold a path more than once, and several instances
/// of an application can run, so the path alone does not identify an item.
struct ItemId {
    std::string path;
    /// How many items of the same path precede it on the dock.
    std::size_t occurrence = 0;

    bool operator==(const ItemId&) const = default;
    bool operator<(const ItemId& other) const {
        return std::tie(occurrence, path) < std::tie(other.occurrence, other.path);
    }
};

} // namespace quillary
