// Runs on macOS only, where the SDK and the frameworks have the last word.
#include "core/AppMemorySource.h"
#include "core/MemoryReader.h"
#include "core/ProcList.h"

#include <QString>

#import <gtest/gtest.h>

#include <algorithm>

#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>
#import <os/log.h>
#include <unistd.h>

namespace quillary::test {
namespace {

TEST(DocumentedValues, areThoseOfTheSystem) {
#define NUMBER(name, value) EXPECT_EQ(static_cast<double>(name), static_cast<double>(value));
#define TEXT(name, value) EXPECT_EQ(QString::fromNSString(name), QStringLiteral(value));
#include "tests/macos/DocumentedValues.def"
#undef NUMBER
#undef TEXT
}

TEST(Darwin, listsThisProcess) {
    const auto pids = ProcList::allPIDs();
    EXPECT_NE(std::ranges::find(pids, ::getpid()), pids.end());
}

TEST(Darwin, tellsTheMachinesMemory) {
    const MemoryStats stats = MemoryReader::read();
    EXPECT_GT(stats.total, 1ULL << 30U);
    EXPECT_GT(stats.used, 0U);
    EXPECT_LT(stats.used, stats.total * 2);
}

TEST(Darwin, leavesOutTheExcludedBundle) {
    const auto all = AppMemorySource().sample();
    if (all.empty()) {
        GTEST_SKIP() << "no application runs";
    }
    const auto others = AppMemorySource(all.front().id).sample();
    EXPECT_TRUE(
        std::ranges::none_of(others, [&all](const AppUsage& usage) { return usage.id == all.front().id; }));
}

} // namespace
} // namespace quillary::test
