#pragma once

#include "app/DockRow.h"
#include "core/RamBadge.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace quillary {

class DockModel;
class FileFacts;

/// What a dock shows, apart from what moves. A plain value, so that a scene can also be built for a dock
/// without a model. Paths that no cell has are without effect.
struct DockContents {
    using Paths = std::set<std::string, std::less<>>;

    struct Memory {
        RamBadge badge = RamBadge::none;
        std::uint64_t bytes = 0;
        bool operator==(const Memory&) const = default;
    };

    DockRow row;
    /// The applications that run.
    Paths running{};
    /// The application in front, if any.
    std::optional<std::string> active{};
    /// The applications whose icons hop because they are being launched.
    Paths launching{};
    /// The items at whose paths no file exists.
    Paths missing{};
    /// The figures of the applications that have one; empty while the dock shows none.
    std::map<std::string, Memory, std::less<>> memory{};

    bool operator==(const DockContents&) const = default;

    /// The contents of the model's dock now.
    [[nodiscard]] static DockContents of(const DockModel& model, const FileFacts& files);
};

} // namespace quillary
