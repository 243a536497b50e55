#pragma once

#include "platform/linux/windows/WindowSource.h"

#include <optional>
#include <vector>

namespace quillary::test {

/// Windows that a test makes up. Records the requests for them; changes are announced when the test emits the
/// signals.
class FakeWindowSource final : public WindowSource {
    Q_OBJECT

public:
    [[nodiscard]] std::vector<WindowInfo> windows() const override { return list; }
    [[nodiscard]] std::optional<std::uint64_t> activeWindow() const override { return active; }
    [[nodiscard]] bool isOwnWindowActive() const override { return ownActive; }
    [[nodiscard]] std::vector<std::uint64_t> stackingOrder() const override { return stack; }
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override { return fullScreen; }
    void activate(std::uint64_t id) override { activated.push_back(id); }
    void close(std::uint64_t id) override { closed.push_back(id); }

    std::vector<WindowInfo> list;
    std::optional<std::uint64_t> active;
    bool ownActive = false;
    std::vector<std::uint64_t> stack;
    std::optional<QRectF> fullScreen;
    std::vector<std::uint64_t> activated;
    std::vector<std::uint64_t> closed;
};

} // namespace quillary::test
