#include "platform/linux/memory/ProcFilesystem.h"
#include "tests/linux/memory/ProcTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>

#include <unistd.h>

namespace quillary::test {

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(ProcFilesystem, processesAreEntriesWithNumbers) {
    const ProcTree tree;
    for (const char* name : {"1", "42", "2147483647", "2147483648", "0", "-5", "007", "12a", "self", "+3"}) {
        std::filesystem::create_directories(tree.proc() / name);
    }
    EXPECT_THAT(ProcFilesystem(tree.proc()).pids(), UnorderedElementsAre(1, 42, 2147483647));
    EXPECT_THAT(ProcFilesystem(tree.proc() / "nowhere").pids(), IsEmpty());
}

TEST(ProcFilesystem, thisProcessIsListed) {
    const auto pids = ProcFilesystem().pids();
    EXPECT_EQ(std::ranges::count(pids, ::getpid()), 1);
    EXPECT_TRUE(std::ranges::all_of(pids, [](std::int32_t pid) { return pid > 0; }));
}

TEST(ProcFilesystem, namespacesAreReadFromTheirLinks) {
    const auto own = ProcFilesystem().namespaces(::getpid());
    EXPECT_EQ(own.pid, std::filesystem::read_symlink("/proc/self/ns/pid").string());
    EXPECT_EQ(own.mount, std::filesystem::read_symlink("/proc/self/ns/mnt").string());
}

TEST(ProcFilesystem, aProcessThatHasEndedHasNoFigures) {
    const ProcTree tree;
    const ProcFilesystem processes(tree.proc());
    EXPECT_FALSE(processes.owner(10));
    EXPECT_FALSE(processes.stat(10));
    EXPECT_FALSE(processes.resident(10));
    EXPECT_FALSE(processes.footprint(10));
    EXPECT_EQ(processes.namespaces(10), ProcessNamespaces());
}

} // namespace

} // namespace quillary::test
