#pragma once

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

    static DockCell item(std::string path, Origin origin) {
        return {Kind::item, std::move(path), origin == Origin::pinned};
    }
    static DockCell separator() { return {}; }

    [[nodiscard]] bool isItem() const { return kind == Kind::item; }
    /// The identity under which the view keeps an entry's on-screen state: the path, or "separator".
    [[nodiscard]] std::string_view id() const { return isItem() ? std::string_view(path) : "separator"; }

    Kind kind = Kind::separator;
    /// Absolute path; empty for the separator.
    std::string path;
    bool pinned = false;

    bool operator==(const DockCell&) const = default;
};

} // namespace quillary
