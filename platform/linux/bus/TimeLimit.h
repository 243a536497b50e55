#pragma once

#include <algorithm>
#include <chrono>

namespace quillary {

/// How long an operation on a bus may take in all, however many calls it makes.
class TimeLimit {
public:
    explicit TimeLimit(std::chrono::milliseconds longest)
        : m_end(std::chrono::steady_clock::now() + longest) {}

    /// Never negative.
    [[nodiscard]] std::chrono::milliseconds left() const {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return std::max(left, std::chrono::milliseconds(0));
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

} // namespace quillary
