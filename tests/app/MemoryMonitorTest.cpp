#include "app/MemoryMonitor.h"

#include "tests/app/Fixture.h"

namespace quillary::test {
namespace {

const MemoryMonitor::ByApp figures{{"/Applications/Mail.app", 1}};

TEST(MemoryMonitor, publishesWhatDiffersOnly) {
    MemoryMonitor monitor;
    monitor.setActive(true);
    const Count stats(&monitor, &MemoryMonitor::statsChanged);
    const Count applications(&monitor, &MemoryMonitor::byAppChanged);
    monitor.publish({.total = 2}, figures);
    monitor.publish({.total = 2}, figures);
    EXPECT_EQ(stats.times, 1);
    EXPECT_EQ(applications.times, 1);
    monitor.publish({.total = 3}, figures);
    EXPECT_EQ(stats.times, 2);
    EXPECT_EQ(applications.times, 1);
}

TEST(MemoryMonitor, dropsASampleThatComesAfterItWasSwitchedOff) {
    MemoryMonitor monitor;
    monitor.setActive(true);
    monitor.publish({.total = 2}, figures);
    monitor.setActive(false);
    EXPECT_TRUE(monitor.byApp().empty());
    monitor.publish({.total = 3}, figures);
    EXPECT_TRUE(monitor.byApp().empty());
    EXPECT_EQ(monitor.stats().total, 2U);
}

} // namespace
} // namespace quillary::test
