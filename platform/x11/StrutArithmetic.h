#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace quillary {

/// The space that one window reserves at the edges of the desktop (EWMH, _NET_WM_STRUT_PARTIAL), in device
/// pixels. Starts and ends are inclusive coordinates along the edge.
struct Strut {
    std::uint32_t left = 0, right = 0, top = 0, bottom = 0;
    std::uint32_t leftStart = 0, leftEnd = 0;
    std::uint32_t rightStart = 0, rightEnd = 0;
    std::uint32_t topStart = 0, topEnd = 0;
    std::uint32_t bottomStart = 0, bottomEnd = 0;

    bool operator==(const Strut&) const = default;
};

namespace StrutArithmetic {

/// Parses _NET_WM_STRUT_PARTIAL or, when that is missing, _NET_WM_STRUT (the precedence that EWMH requires).
/// The latter applies along the whole edge. Absent when no space is reserved.
[[nodiscard]] std::optional<Strut> parse(const std::vector<std::uint32_t>& partial,
                                         const std::vector<std::uint32_t>& whole);

/// The screen less the reserved space, in device pixels. Struts are measured from the edges of the desktop,
/// so a strut applies to a screen only if it extends into the screen and its range along the edge overlaps
/// the screen. A strut that would leave nothing of the screen is ignored: it belongs to a screen further
/// inside, or it is invalid.
[[nodiscard]] QRect visibleFrame(const QRect& screen, const QSize& desktop, const std::vector<Strut>& struts);

} // namespace StrutArithmetic

} // namespace quillary
