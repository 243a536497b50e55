#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/memory/LinuxMemorySource.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/FakeWindowSource.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/memory/ProcTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include <sched.h>

namespace quillary::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LinuxMemorySourceTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        browser = install("browser.desktop", "Name=browser\nExec=browser\nStartupWMClass=Browser");
        editor = install("editor.desktop", "Name=editor\nExec=editor\nStartupWMClass=Editor");
        put(10, 3000);
        put(11, 2000);
    }

    [[nodiscard]] LinuxMemorySource newSource(const std::filesystem::path& root) {
        return {[this] { return workspace.desktopNow(); }, "quillary.desktop", root};
    }
    [[nodiscard]] LinuxMemorySource newSource() { return newSource(tree.root()); }
    void put(std::int32_t pid, std::uint64_t kibibytes) const {
        tree.put({.pid = pid, .anonymous = kibibytes, .exact = ProcEntry::Exact{.anonymous = kibibytes}});
    }
    void show(std::int64_t pid, const std::string& windowClass) {
        WindowInfo window;
        window.id = windows.list.size() + 1;
        window.pid = pid;
        window.windowClass = windowClass;
        windows.list.push_back(window);
    }

    ProcTree tree;
    FakeWindowSource windows;
    ManualScheduler scheduler;
    DesktopEntries entries{scheduler};
    LinesLog log;
    LinuxWorkspace workspace{windows, entries, scheduler, log};
    std::string browser;
    std::string editor;
};

TEST_F(LinuxMemorySourceTest, applicationsAreFoundByTheirWindows) {
    show(10, "Browser");
    show(11, "Editor");
    show(12, "Unknown");
    auto source = newSource();
    EXPECT_THAT(source.sampler()().applications, ElementsAre(AppUsage{browser, "browser", {10}, 3'072'000},
                                                             AppUsage{editor, "editor", {11}, 2'048'000}));
}

TEST_F(LinuxMemorySourceTest, applicationsThatAppearLaterAreFoundToo) {
    show(10, "Browser");
    auto source = newSource();
    EXPECT_EQ(source.sampler()().applications.size(), 1U);
    show(11, "Editor");
    EXPECT_THAT(source.sampler()().applications, ElementsAre(AppUsage{browser, "browser", {10}, 3'072'000},
                                                             AppUsage{editor, "editor", {11}, 2'048'000}));
}

TEST_F(LinuxMemorySourceTest, machineFiguresComeFromTheSameRoot) {
    writeFile(tree.proc() / "meminfo", "MemTotal: 4096 kB\nAnonPages: 1024 kB\nActive(anon): 1024 kB\n");
    writeFile(tree.proc() / "pressure/memory", "some avg10=12.00\nfull avg10=1.00\n");
    auto source = newSource();
    EXPECT_EQ(
        source.sampler()().stats,
        (MemoryStats{
            .total = 4'194'304, .used = 1'048'576, .swapUsed = 0, .pressure = MemoryPressure::warning}));
}

TEST_F(LinuxMemorySourceTest, aSamplerOutlivesItsSource) {
    show(10, "Browser");
    MemorySource::Sampler sampler;
    {
        auto source = newSource();
        sampler = source.sampler();
    }
    windows.list.clear();
    EXPECT_EQ(sampler().applications.size(), 1U);
}

TEST_F(LinuxMemorySourceTest, samplesMayOverlap) {
    show(10, "Browser");
    auto source = newSource();
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([sampler = source.sampler()] {
            for (int round = 0; round < 20; ++round) {
                EXPECT_LE(sampler().applications.size(), 1U);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(source.sampler()().applications, ElementsAre(AppUsage{browser, "browser", {10}, 3'072'000}));
}

TEST_F(LinuxMemorySourceTest, theThreadHasItsPriorityBackAfterwards) {
    auto source = newSource();
    const auto before = ::sched_getscheduler(0);
    static_cast<void>(source.sampler()());
    EXPECT_EQ(::sched_getscheduler(0), before);
}

TEST_F(LinuxMemorySourceTest, aRootWithoutProcessesGivesNothing) {
    show(10, "Browser");
    auto source = newSource(tree.root() / "nowhere");
    EXPECT_EQ(source.sampler()(), MemorySample());
}

TEST_F(LinuxMemorySourceTest, entriesThatCannotBeReadAreLeftOut) {
    show(10, "Browser");
    writeFile(browser, "no entry");
    auto source = newSource();
    EXPECT_THAT(source.sampler()().applications, IsEmpty());
}

} // namespace

} // namespace quillary::test
