#pragma once

#include <cstddef>
#include <string_view>

namespace quillary::PropertyListGuard {

/// Larger files are no preferences of a dock.
inline constexpr std::size_t sizeLimit = std::size_t{1024} * 1024;

/// Whether a property list, XML or binary, may be handed to libplist: small enough, not nested so deeply that
/// freeing it overflows the stack, without the masses of entities or keys that keep it busy for a minute,
/// and, when binary, with all offsets inside the file and without the shared references that make a small
/// file unfold into a huge tree. libplist bounds none of these. An accepted text need not be a property list.
[[nodiscard]] bool isHarmless(std::string_view bytes);

} // namespace quillary::PropertyListGuard
