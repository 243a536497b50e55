#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace quillary {

/// The space that one window reserves at the edges of the whole desktop (EWMH, _NET_WM_STRUT_PARTIAL). Device
/// pixels; starts and ends are inclusive coordinates along the edge.
struct Strut {
    std::uint32_t left = 0, right = 0, top = 0, bottom = 0;
    std::uint32_t leftStart = 0, leftEnd = 0;
    std::uint32_t rightStart = 0, rightEnd = 0;
    std::uint32_t topStart = 0, topEnd = 0;
    std::uint32_t bottomStart = 0, bottomEnd = 0;

    bool operator==(const Strut&) const = default;
};

namespace StrutArithmetic {

/// Reads the two properties, the partial one first as EWMH asks; absent when neither reserves anything.
/// _NET_WM_STRUT counts along the whole edge.
[[nodiscard]] std::optional<Strut> parse(const std::vector<std::uint32_t>& partial,
                                         const std::vector<std::uint32_t>& whole);

/// The screen without the reserved space, device pixels. Struts are measured from the edge of the desktop, so
/// one counts for a screen only where it reaches into it and its range along the edge meets the screen. One
/// that would leave nothing of the screen is meant for the screen behind it, or broken, and does not count.
[[nodiscard]] QRect visibleFrame(const QRect& screen, const QSize& desktop, const std::vector<Strut>& struts);

} // namespace StrutArithmetic

} // namespace quillary
