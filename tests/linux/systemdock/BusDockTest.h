#pragma once

#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/systemdock/DesktopDock.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/systemdock/HiderRun.h"

#include <chrono>
#include <functional>

namespace quillary::test {

/// A desktop's dock that is reached through a service on the private session bus.
class BusDockTest : public WorldTest {
protected:
    using Lines = std::vector<std::string>;

    [[nodiscard]] std::unique_ptr<DesktopDock> newDock(const char* desktop) {
        return DesktopDock::of(CurrentDesktop(desktop), folder, log);
    }
    [[nodiscard]] static double seconds(const std::function<void()>& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    }

    const std::filesystem::path folder = World::config() / "Quillary";
    LinesLog log;
};

} // namespace quillary::test
