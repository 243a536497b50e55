#include "tests/linux/memory/MemorySweepTest.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include <unistd.h>

namespace quillary::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MemorySweepTest, anApplicationIsTheSumOfItsProcesses) {
    tree.put({.pid = 10,
              .anonymous = 5000,
              .exact = ProcEntry::Exact{.anonymous = 4000, .lazilyFreed = 500, .shared = 30, .swapped = 4}});
    tree.put({.pid = 11, .parent = 10, .anonymous = 3000, .exact = ProcEntry::Exact{.anonymous = 2000}});
    tree.put({.pid = 12, .anonymous = 9000});
    show(10, browser);
    auto usages = sample();
    ASSERT_EQ(usages.size(), 1U);
    std::ranges::sort(usages.front().pids);
    EXPECT_EQ(usages.front(), (AppUsage{browser, "browser", {10, 11}, 5534 * kib}));
}

TEST_F(MemorySweepTest, processesOfOthersDoNotCount) {
    tree.put(window(10, 50, 40));
    show(10, browser);
    surroundings.user = ::geteuid() + 1;
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(MemorySweepTest, thisProgramAndItsEntryAreNeverReported) {
    const auto own = install("quillary.desktop", "Name=x\nExec=x");
    tree.put(window(ownPid, 50, 40));
    tree.put(window(10, 50, 40));
    show(ownPid, browser);
    show(10, own);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(MemorySweepTest, changesShowAtOnceAndGetExactAgain) {
    tree.put(window(10, 50, 40));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
    auto grown = window(10, 80, 75);
    grown.resident = 200;
    tree.put(grown);
    EXPECT_EQ(bytesOf(browser), 75 * mebibyte * kib);
}

TEST_F(MemorySweepTest, withoutBudgetTheCheapFigureFollowsChanges) {
    tree.put(window(10, 50, 40));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
    cost = 10;
    auto grown = window(10, 80, 75);
    grown.resident = 200;
    tree.put(grown);
    static_cast<void>(sample());
    auto more = window(10, 90, 1);
    more.resident = 300;
    tree.put(more);
    // 75 was read with the last of the budget; it grew by 10 since.
    EXPECT_EQ(bytesOf(browser), 85 * mebibyte * kib);
}

TEST_F(MemorySweepTest, theBudgetIsSpreadOverSamplesTheMostDoubtfulFirst) {
    // Each exact reading takes 25 ms: the first sample may do two, later ones one after each debt is paid.
    for (const std::int32_t pid : {10, 11, 12, 13}) {
        tree.put(window(pid, 100 + static_cast<std::uint64_t>(pid), 1));
        show(pid, browser);
    }
    cost = 0.025;
    EXPECT_EQ(bytesOf(browser), (110 + 111 + 1 + 1) * mebibyte * kib);
    int samples = 0;
    while (bytesOf(browser) != 4 * mebibyte * kib && samples < 100) {
        ++samples;
    }
    EXPECT_GT(samples, 10);
    EXPECT_LT(samples, 100);
}

TEST_F(MemorySweepTest, whatASiblingGaveUpIsTheOthersAtOnce) {
    tree.put(window(10, 300, 150));
    auto child = window(11, 300, 150);
    child.parent = 10;
    tree.put(child);
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 300 * mebibyte * kib);
    // The child has all of it now, and does not change itself.
    auto less = window(10, 10, 10);
    less.resident = 50;
    tree.put(less);
    child.exact = ProcEntry::Exact{.anonymous = 300 * mebibyte};
    tree.put(child);
    EXPECT_EQ(bytesOf(browser), 310 * mebibyte * kib);
    tree.remove(10);
    EXPECT_THAT(sample(), IsEmpty());
}

// So small that the time since the exact reading alone leaves no doubt worth another one.
TEST_F(MemorySweepTest, aSmallProcessIsReadAgainWhenASiblingGivesUpWhatTheyShared) {
    tree.put(window(10, 100, 50));
    auto child = window(11, 100, 50);
    child.parent = 10;
    tree.put(child);
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 100 * mebibyte * kib);
    auto less = window(10, 10, 10);
    less.resident = 50;
    tree.put(less);
    child.exact = ProcEntry::Exact{.anonymous = 100 * mebibyte};
    tree.put(child);
    EXPECT_EQ(bytesOf(browser), 110 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aSmallProcessIsReadAgainWhenASiblingEnds) {
    tree.put(window(10, 100, 50));
    auto child = window(11, 100, 50);
    child.parent = 10;
    tree.put(child);
    show(10, browser);
    show(11, browser);
    EXPECT_EQ(bytesOf(browser), 100 * mebibyte * kib);
    tree.remove(10);
    child.exact = ProcEntry::Exact{.anonymous = 100 * mebibyte};
    tree.put(child);
    EXPECT_EQ(bytesOf(browser), 100 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aSmallProcessWhoseFamilyKeepsWhatItHasIsNotReadAgain) {
    tree.put(window(10, 100, 50));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
    tree.put(window(10, 100, 70));
    EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
}

TEST_F(MemorySweepTest, whatNobodyMayReadCountsByItsCheapFigure) {
    auto forbidden = window(10, 50, 0);
    forbidden.exact.reset();
    tree.put(forbidden);
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
    EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aChangeThatLeavesTheNumberOfPagesIsNoticedInTime) {
    tree.put(window(10, 50, 50));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
    tree.put(window(10, 70, 70));
    int samples = 0;
    while (bytesOf(browser) != 70 * mebibyte * kib && samples < 20) {
        ++samples;
    }
    EXPECT_LE(samples, 8);
}

TEST_F(MemorySweepTest, aProcessWithAUsedIdIsAnother) {
    tree.put(window(10, 50, 40));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
    desktop.windows.clear();
    // It has no windows, but is still what it was.
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
    auto other = window(10, 60, 60);
    other.start = 101;
    tree.put(other);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(MemorySweepTest, aProgramThatReplacesItselfIsLookedAtAgain) {
    tree.put({.pid = 10,
              .name = "sh",
              .executable = "/bin/sh",
              .anonymous = 3000,
              .exact = ProcEntry::Exact{.anonymous = 3000}});
    for (int i = 0; i < 10; ++i) {
        EXPECT_THAT(sample(), IsEmpty());
    }
    tree.put({.pid = 10,
              .name = "editor",
              .executable = "/usr/bin/editor",
              .environment = launchVariables(editor, 10),
              .anonymous = 3000,
              .exact = ProcEntry::Exact{.anonymous = 3000}});
    EXPECT_EQ(bytesOf(editor), 3000 * kib);
}

TEST_F(MemorySweepTest, aProcessMovedToAGroupOfItsOwnAfterItsStartIsLookedAtAgain) {
    auto process = window(10, 3, 3);
    tree.put(process);
    EXPECT_THAT(sample(), IsEmpty());
    process.group = "/user.slice/app.slice/app-quillary-editor-10.scope";
    tree.put(process);
    EXPECT_EQ(bytesOf(editor), 3 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aProcessIsLookedAtInItsFirstThreeSamples) {
    auto early = window(10, 3, 3);
    auto late = window(11, 5, 5);
    tree.put(early);
    tree.put(late);
    EXPECT_THAT(sample(), IsEmpty());
    EXPECT_THAT(sample(), IsEmpty());
    early.group = "/user.slice/app.slice/app-quillary-editor-10.scope";
    tree.put(early);
    EXPECT_EQ(bytesOf(editor), 3 * mebibyte * kib);
    late.group = "/user.slice/app.slice/app-quillary-browser-11.scope";
    tree.put(late);
    EXPECT_EQ(bytesOf(browser), 0U);
}

TEST_F(MemorySweepTest, aFlatpaksWindowDoesNotClaimAStranger) {
    tree.put(window(2, 50, 40));
    auto sandboxed = window(77, 9, 9);
    sandboxed.group = "/app.slice/app-flatpak-org.x.Browser-77.scope";
    tree.put(sandboxed);
    show(2, browser, "org.x.Browser");
    EXPECT_THAT(sample(), ElementsAre(AppUsage{browser, "browser", {77}, 9 * mebibyte * kib}));
}

TEST_F(MemorySweepTest, anInheritedSnapVariableDoesNotTakeTheBrowsersChildren) {
    install("chat_chat.desktop", "Name=x\nExec=x");
    auto main = window(10, 50, 40);
    auto child = window(11, 9, 9);
    child.parent = 10;
    for (auto* process : {&main, &child}) {
        process->group = "/user.slice/app.slice/app-quillary-browser-10.scope";
        process->environment = std::string("SNAP_INSTANCE_NAME=chat") + '\0';
        tree.put(*process);
    }
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 49 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aSnapsWindowCountsWithoutAUnitOfTheSnap) {
    auto snap = window(10, 50, 40);
    snap.environment = std::string("SNAP_INSTANCE_NAME=browser") + '\0';
    tree.put(snap);
    show(10, browser, "browser");
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
}

TEST_F(MemorySweepTest, aFolderOwnsNoProcessOfAnotherNamespace) {
    auto main = window(10, 50, 1);
    auto other = window(11, 2, 2);
    main.mountNamespace = other.mountNamespace = "mnt:[1]";
    other.group = "/user.slice/run-r1.scope";
    tree.put(main);
    tree.put(other);
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 3 * mebibyte * kib);
    other.mountNamespace = "mnt:[2]";
    tree.put(other);
    EXPECT_EQ(bytesOf(browser), 1 * mebibyte * kib);
}

TEST_F(MemorySweepTest, ofTwoApplicationsInOneProcessTheFirstStands) {
    tree.put(window(10, 50, 40));
    show(10, editor);
    show(10, browser);
    EXPECT_THAT(sample(), ElementsAre(AppUsage{editor, "editor", {10}, 40 * mebibyte * kib}));
}

TEST_F(MemorySweepTest, windowsOfProcessesThatCannotBeSayNothing) {
    tree.put(window(10, 50, 40));
    show(-10, browser);
    show(0, browser);
    show((std::int64_t{1} << 32) + 10, browser);
    show(11, browser);
    EXPECT_THAT(sample(), IsEmpty());
}

TEST_F(MemorySweepTest, filesThatAreMissingOrOddDoNoHarm) {
    for (const char* file : {"stat", "status", "smaps_rollup", "cgroup", "environ", "cmdline", "exe"}) {
        tree.put(window(10, 50, 40));
        show(10, browser);
        std::filesystem::remove(tree.of(10) / file);
        EXPECT_LE(bytesOf(browser), 50 * mebibyte * kib) << file;
        std::filesystem::create_directory(tree.of(10) / file);
        EXPECT_LE(bytesOf(browser), 50 * mebibyte * kib) << file;
        std::filesystem::remove(tree.of(10) / file);
        writeFile(tree.of(10) / file, std::string(100'000, ')'));
        EXPECT_LE(bytesOf(browser), 50 * mebibyte * kib) << file;
        table = {};
    }
}

TEST_F(MemorySweepTest, aProcessThatAnotherThreadIsReadingIsLeftAlone) {
    tree.put(window(10, 50, 40));
    show(10, browser);
    EXPECT_EQ(bytesOf(browser), 40 * mebibyte * kib);
    busy.tryReading({10, 100}, [&] {
        auto grown = window(10, 60, 41);
        grown.resident = 200;
        tree.put(grown);
        EXPECT_EQ(bytesOf(browser), 50 * mebibyte * kib);
    });
    EXPECT_EQ(bytesOf(browser), 41 * mebibyte * kib);
}

TEST_F(MemorySweepTest, processesThatVanishWhileTheyAreReadDoNoHarm) {
    std::atomic<bool> done = false;
    std::thread changer([&] {
        for (int round = 0; !done; ++round) {
            for (std::int32_t pid = 10; pid < 40; ++pid) {
                auto process = window(pid, 50, 40);
                process.parent = 10;
                process.start = static_cast<std::uint64_t>(round);
                if ((round + pid) % 3 == 0) {
                    std::error_code ignored;
                    std::filesystem::remove_all(tree.of(pid), ignored);
                } else {
                    tree.put(process);
                }
            }
        }
    });
    show(10, browser);
    for (int i = 0; i < 200; ++i) {
        for (const auto& usage : sample()) {
            EXPECT_EQ(usage.id, browser);
            EXPECT_LE(usage.bytes, usage.pids.size() * 50 * mebibyte * kib);
        }
    }
    done = true;
    changer.join();
}

TEST_F(MemorySweepTest, thousandsOfProcessesAreCounted) {
    constexpr std::int32_t count = 5000;
    for (std::int32_t pid = 1000; pid < 1000 + count; ++pid) {
        auto process = window(pid, 2, 1);
        process.parent = pid == 1000 ? 1 : 1000;
        tree.put(process);
    }
    show(1000, browser);
    EXPECT_EQ(bytesOf(browser), static_cast<std::uint64_t>(count) * mebibyte * kib);
}

} // namespace

} // namespace quillary::test
