#pragma once

#include "platform/linux/memory/MemorySweep.h"
#include "tests/linux/World.h"
#include "tests/linux/memory/ProcTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

namespace quillary::test {

constexpr std::int32_t ownPid = 900;
constexpr std::uint64_t mebibyte = 1024;

/// Sweeps over a made-up process file system.
class MemorySweepTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        browser = install("browser.desktop", "Name=x\nExec=x");
        editor = install("editor.desktop", "Name=x\nExec=x");
        surroundings = {.processes = ProcFilesystem(tree.proc()),
                        .user = ::geteuid(),
                        .ownPid = ownPid,
                        .ownId = "quillary.desktop",
                        .entryFolders = {World::systemData() / "applications"},
                        .clock = [this] { return now; },
                        .processorTime = [this] { return used += cost; }};
    }

    /// A sample, four seconds after the last one.
    std::vector<AppUsage> sample() {
        now += 4;
        return MemorySweep(surroundings, busy, table).run(desktop);
    }
    std::uint64_t bytesOf(const std::string& path) {
        const auto usages = sample();
        const auto place = std::ranges::find(usages, path, &AppUsage::id);
        return place == usages.end() ? 0 : place->bytes;
    }
    void show(std::int64_t pid, const std::string& path, const std::string& sandbox = {}) {
        desktop.windows.push_back({pid, path});
        desktop.entries.push_back({path, std::filesystem::path(path).filename(), sandbox});
    }
    /// A window's process: figures in MiB.
    ProcEntry window(std::int32_t pid, std::uint64_t anonymous, std::uint64_t exact) const {
        return {.pid = pid,
                .executable = "/opt/x/x",
                .anonymous = anonymous * mebibyte,
                .exact = ProcEntry::Exact{.anonymous = exact * mebibyte}};
    }

    static constexpr std::uint64_t kib = 1024;
    ProcTree tree;
    std::string browser;
    std::string editor;
    MemorySurroundings surroundings;
    BusyProcesses busy;
    ProcessTable table;
    DesktopNow desktop;
    double now = 100;
    double used = 0;
    // Seconds between two looks at the processor's time.
    double cost = 0;
};

} // namespace quillary::test
