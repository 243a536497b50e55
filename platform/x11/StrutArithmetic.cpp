#include "platform/x11/StrutArithmetic.h"

#include <limits>

namespace quillary::StrutArithmetic {

namespace {

constexpr std::uint32_t wholeEdge = std::numeric_limits<std::uint32_t>::max();

// Half-open, and wide enough for untrusted 32-bit values.
struct Range {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    [[nodiscard]] bool meets(std::uint32_t first, std::uint32_t last) const {
        return std::int64_t{first} < end && std::int64_t{last} >= begin;
    }
    // Both ignore a position that would leave an empty range.
    void cutBefore(std::int64_t position) {
        if (position > begin && position < end) {
            begin = position;
        }
    }
    void cutAfter(std::int64_t position) {
        if (position < end && position > begin) {
            end = position;
        }
    }
};

} // namespace

std::optional<Strut> parse(const std::vector<std::uint32_t>& partial,
                           const std::vector<std::uint32_t>& whole) {
    Strut strut;
    if (partial.size() >= 12) {
        strut = {partial[0], partial[1], partial[2], partial[3], partial[4],  partial[5],
                 partial[6], partial[7], partial[8], partial[9], partial[10], partial[11]};
    } else if (whole.size() >= 4) {
        strut = {whole[0], whole[1],  whole[2], whole[3],  0, wholeEdge,
                 0,        wholeEdge, 0,        wholeEdge, 0, wholeEdge};
    }
    if (strut.left == 0 && strut.right == 0 && strut.top == 0 && strut.bottom == 0) {
        return std::nullopt;
    }
    return strut;
}

QRect visibleFrame(const QRect& screen, const QSize& desktop, const std::vector<Strut>& struts) {
    const Range width{screen.x(), std::int64_t{screen.x()} + screen.width()};
    const Range height{screen.y(), std::int64_t{screen.y()} + screen.height()};
    Range x = width;
    Range y = height;
    for (const auto& strut : struts) {
        if (strut.left > 0 && height.meets(strut.leftStart, strut.leftEnd)) {
            x.cutBefore(strut.left);
        }
        if (strut.right > 0 && height.meets(strut.rightStart, strut.rightEnd)) {
            x.cutAfter(std::int64_t{desktop.width()} - strut.right);
        }
        if (strut.top > 0 && width.meets(strut.topStart, strut.topEnd)) {
            y.cutBefore(strut.top);
        }
        if (strut.bottom > 0 && width.meets(strut.bottomStart, strut.bottomEnd)) {
            y.cutAfter(std::int64_t{desktop.height()} - strut.bottom);
        }
    }
    return {static_cast<int>(x.begin), static_cast<int>(y.begin), static_cast<int>(x.end - x.begin),
            static_cast<int>(y.end - y.begin)};
}

} // namespace quillary::StrutArithmetic
