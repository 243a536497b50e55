#pragma once

#include "platform/x11/X11Atoms.h"

#include <cstdint>
#include <vector>

namespace quillary::X11WindowKind {

/// Whether docks and task bars show a window: by its types (EWMH, _NET_WM_WINDOW_TYPE: in order of
/// preference, the first one known decides, none means a normal window or a dialog) and its states
/// (_NET_WM_STATE).
[[nodiscard]] bool isNormal(const X11Atoms& atoms, const std::vector<std::uint32_t>& types,
                            const std::vector<std::uint32_t>& states);

} // namespace quillary::X11WindowKind
