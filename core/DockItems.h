#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The ways in which a list of pinned items changes. Both functions return a new list and leave their
/// arguments alone.
namespace quillary::DockItems {

/// `items` with `added` inserted as one block before position `index` (clamped to the list; the end when
/// absent). Repeats within `added` count once. A path that is already in `items` moves instead of appearing
/// twice; `index` refers to the list as it was before that. Paths that are not valid UTF-8 are dropped from
/// `added`.
[[nodiscard]] std::vector<std::string> adding(const std::vector<std::string>& added,
                                              const std::vector<std::string>& items,
                                              std::optional<std::ptrdiff_t> index = std::nullopt);

/// `items` with the path at `from` brought to position `to` (clamped to the list); the others keep their
/// order. The list is unchanged when `from` is no position of it or equals `to`.
[[nodiscard]] std::vector<std::string> moving(const std::vector<std::string>& items, std::ptrdiff_t from,
                                              std::ptrdiff_t to);

} // namespace quillary::DockItems
