#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quillary {

/// One entry of a dock in display order: an item (application, folder or file) or the separator between the
/// pinned items and the running applications.
struct DockCell {
    enum class Kind : std::uint8_t { item, separator };

    /// Whether an item is in the configuration or is shown because it runs.
    enum class Origin : std::uint8_t { pinned, running };

    /// `occurrence` is the number of cells of the same path before it.
    static DockCell item(std::string path, Origin origin, std::size_t occurrence = 0) {
        return {Kind::item, std::move(path), occurrence, origin == Origin::pinned};
    }
    static DockCell separator() { return {}; }

    [[nodiscard]] bool isItem() const { return kind == Kind::item; }
    /// The path, or "separator". Cells of one path differ in their occurrence.
    [[nodiscard]] std::string_view id() const { return isItem() ? std::string_view(path) : "separator"; }

    Kind kind = Kind::separator;
    /// Absolute path; empty for the separator.
    std::string path;
    /// How many cells of the same path precede it.
    std::size_t occurrence = 0;
    bool pinned = false;

    bool operator==(const DockCell&) const = default;
};

} // namespace quillary
