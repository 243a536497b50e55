#pragma once

#include "platform/x11/X11Atoms.h"

#include <cstdint>
#include <vector>

namespace quillary::X11WindowKind {

/// Whether docks and task bars show a window, by its states (EWMH, _NET_WM_STATE) and its types
/// (_NET_WM_WINDOW_TYPE). Types are in order of preference: the first known one decides, and a window without
/// a known type is shown. A utility window accompanies an application's other windows, so it is not.
[[nodiscard]] bool isNormal(const X11Atoms& atoms, const std::vector<std::uint32_t>& types,
                            const std::vector<std::uint32_t>& states);

} // namespace quillary::X11WindowKind
