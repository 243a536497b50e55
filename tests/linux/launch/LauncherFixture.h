#pragma once

#include "platform/linux/launch/Launcher.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

namespace quillary::test {

using Strings = std::vector<std::string>;

/// Records the messages that are broadcast; the test sets the time of the user's action.
class RecordedStartups final : public StartupNotification {
public:
    [[nodiscard]] StartupOrigin origin() const override {
        return {.time = time,
                .screen = 3,
                .clock = [] { return 4711U; },
                .broadcast = [this](const std::string& message) { messages.push_back(message); }};
    }

    std::uint32_t time = 0;
    mutable Strings messages;
};

/// Launches entries whose program "report" writes its arguments to `output`.
class LauncherTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        output = World::home() / "output";
        // Renamed when complete, because the test waits for the final line break.
        writeScript(World::programs() / "report", "{ printf '[%s]' \"$@\"; echo; } > " + output.string() +
                                                      ".part\nmv " + output.string() + ".part " +
                                                      output.string());
    }

    void finish() {
        while (scheduler.finishWork()) {
        }
    }

    std::string launched(const std::string& entry, const Strings& files = {}) {
        launcher.launch(entry, files);
        finish();
        return waitForLine(output);
    }

    void reportCommand(const std::string& command) const {
        writeScript(World::programs() / "report", "{ " + command + "; } > " + output.string() + ".part\nmv " +
                                                      output.string() + ".part " + output.string());
    }

    std::filesystem::path output;
    ManualScheduler scheduler;
    LinesLog log;
    RecordedStartups startups;
    Launcher launcher{scheduler, log, &startups};
};

} // namespace quillary::test
