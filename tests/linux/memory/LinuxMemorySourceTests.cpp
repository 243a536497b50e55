#include "platform/linux/memory/LinuxMemorySource.h"
#include "tests/fake/FakePlatform.h"
#include "tests/linux/FakeWindowSource.h"
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
        workspace.ownIdentifier = "quillary.desktop";
        browser = run("browser", "StartupWMClass=Browser");
        editor = run("editor", "StartupWMClass=Editor");
        put(10, 3000);
        put(11, 2000);
    }

    /// Installs an entry and lets its application run.
    std::string run(const std::string& name, const std::string& line) {
        auto path = install(name + ".desktop", "Name=" + name + "\nExec=" + name + "\n" + line);
        workspace.running.push_back({.handle = workspace.running.size() + 1,
                                     .policy = ActivationPolicy::regular,
                                     .bundlePath = path,
                                     .bundleIdentifier = name + ".desktop"});
        return path;
    }
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
    FakeWorkspace workspace;
    std::string browser;
    std::string editor;
};

TEST_F(LinuxMemorySourceTest, applicationsAreFoundByTheirWindows) {
    show(10, "Browser");
    show(11, "Editor");
    show(12, "Unknown");
    LinuxMemorySource source(windows, workspace, tree.root());
    EXPECT_THAT(source.sampler()().applications, ElementsAre(AppUsage{browser, "browser", {10}, 3'072'000},
                                                             AppUsage{editor, "editor", {11}, 2'048'000}));
}

TEST_F(LinuxMemorySourceTest, applicationsThatAppearLaterAreFoundToo) {
    show(10, "Browser");
    show(11, "Viewer");
    LinuxMemorySource source(windows, workspace, tree.root());
    EXPECT_EQ(source.sampler()().applications.size(), 1U);
    const auto viewer = run("viewer", "StartupWMClass=Viewer");
    EXPECT_THAT(source.sampler()().applications, ElementsAre(AppUsage{browser, "browser", {10}, 3'072'000},
                                                             AppUsage{viewer, "viewer", {11}, 2'048'000}));
}

TEST_F(LinuxMemorySourceTest, machineFiguresComeFromTheSameRoot) {
    writeFile(tree.proc() / "meminfo", "MemTotal: 4096 kB\nAnonPages: 1024 kB\nActive(anon): 1024 kB\n");
    writeFile(tree.proc() / "pressure/memory", "some avg10=12.00\nfull avg10=1.00\n");
    LinuxMemorySource source(windows, workspace, tree.root());
    EXPECT_EQ(
        source.sampler()().stats,
        (MemoryStats{
            .total = 4'194'304, .used = 1'048'576, .swapUsed = 0, .pressure = MemoryPressure::warning}));
}

TEST_F(LinuxMemorySourceTest, aSamplerOutlivesItsSource) {
    show(10, "Browser");
    MemorySource::Sampler sampler;
    {
        LinuxMemorySource source(windows, workspace, tree.root());
        sampler = source.sampler();
    }
    windows.list.clear();
    EXPECT_EQ(sampler().applications.size(), 1U);
}

TEST_F(LinuxMemorySourceTest, samplesMayOverlap) {
    show(10, "Browser");
    LinuxMemorySource source(windows, workspace, tree.root());
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
    LinuxMemorySource source(windows, workspace, tree.root());
    const auto before = ::sched_getscheduler(0);
    static_cast<void>(source.sampler()());
    EXPECT_EQ(::sched_getscheduler(0), before);
}

TEST_F(LinuxMemorySourceTest, aRootWithoutProcessesGivesNothing) {
    show(10, "Browser");
    LinuxMemorySource source(windows, workspace, tree.root() / "nowhere");
    EXPECT_EQ(source.sampler()(), MemorySample());
}

TEST_F(LinuxMemorySourceTest, entriesThatCannotBeReadAreLeftOut) {
    show(10, "Browser");
    writeFile(browser, "no entry");
    LinuxMemorySource source(windows, workspace, tree.root());
    EXPECT_THAT(source.sampler()().applications, IsEmpty());
}

} // namespace

} // namespace quillary::test
