#include "app/MemoryMonitor.h"
#include "platform/qt/QtScheduler.h"
#include "tests/app/Fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <array>
#include <limits>
#include <semaphore>

namespace quillary::test {
namespace {

constexpr std::uint64_t gibibyte = 1'073'741'824;
const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";

AppUsage usage(const std::string& path, std::uint64_t bytes) {
    return {.id = path, .name = {}, .pids = {}, .bytes = bytes};
}

MemorySample sampleOf(std::uint64_t bytes) {
    return {.stats = {.total = 16 * gibibyte, .used = bytes}, .applications = {usage(mail, bytes)}};
}

class MemoryMonitorTest : public testing::Test {
protected:
    // Starts no work of its own: it is the oldest in the queue or it isn't there.
    void finish() { ASSERT_TRUE(scheduler.finishWork()); }

    ManualScheduler scheduler;
    FakeMemorySource source;
    std::unique_ptr<MemoryMonitor> monitor = std::make_unique<MemoryMonitor>(scheduler, source);
};

TEST_F(MemoryMonitorTest, isOffAtFirst) {
    EXPECT_FALSE(monitor->running());
    EXPECT_EQ(monitor->stats(), MemoryStats());
    EXPECT_TRUE(monitor->byApp().empty());
    EXPECT_EQ(scheduler.pending(), 0U);
    EXPECT_EQ(source.samplersMade, 0);
}

TEST_F(MemoryMonitorTest, samplesAtOnceAndThenEveryFourSeconds) {
    monitor->setActive(true);
    EXPECT_EQ(source.samplersMade, 1);
    scheduler.advance(3.99);
    EXPECT_EQ(source.samplersMade, 1);
    scheduler.advance(0.01);
    EXPECT_EQ(source.samplersMade, 2);
    scheduler.advance(8);
    EXPECT_EQ(source.samplersMade, 4);
}

TEST_F(MemoryMonitorTest, switchedOnTwiceItHasOneTimer) {
    monitor->setActive(true);
    monitor->setActive(true);
    EXPECT_EQ(scheduler.pending(), 1U);
    EXPECT_EQ(source.samplersMade, 1);
}

TEST_F(MemoryMonitorTest, publishesWhatTheSampleFound) {
    source.sample = sampleOf(3 * gibibyte);
    monitor->setActive(true);
    EXPECT_TRUE(monitor->byApp().empty());
    finish();
    EXPECT_EQ(monitor->stats(), source.sample.stats);
    EXPECT_EQ(monitor->byApp(), (MemoryMonitor::ByApp{{mail, 3 * gibibyte}}));
}

TEST_F(MemoryMonitorTest, publishesWhatDiffersOnly) {
    const Count stats(monitor.get(), &MemoryMonitor::statsChanged);
    const Count applications(monitor.get(), &MemoryMonitor::byAppChanged);
    source.sample = sampleOf(2);
    monitor->setActive(true);
    finish();
    scheduler.advance(4);
    finish();
    EXPECT_EQ(stats.times, 1);
    EXPECT_EQ(applications.times, 1);
    source.sample.stats.used = 3;
    scheduler.advance(4);
    finish();
    EXPECT_EQ(stats.times, 2);
    EXPECT_EQ(applications.times, 1);
    source.sample.applications.front().bytes = 3;
    scheduler.advance(4);
    finish();
    EXPECT_EQ(stats.times, 2);
    EXPECT_EQ(applications.times, 2);
}

TEST_F(MemoryMonitorTest, offForgetsTheApplicationsAndKeepsTheMachine) {
    source.sample = sampleOf(2);
    monitor->setActive(true);
    finish();
    const Count applications(monitor.get(), &MemoryMonitor::byAppChanged);
    monitor->setActive(false);
    EXPECT_TRUE(monitor->byApp().empty());
    EXPECT_EQ(monitor->stats(), source.sample.stats);
    EXPECT_EQ(applications.times, 1);
    monitor->setActive(false);
    EXPECT_EQ(applications.times, 1);
}

TEST_F(MemoryMonitorTest, whileOffNothingWakesUp) {
    monitor->setActive(true);
    finish();
    monitor->setActive(false);
    EXPECT_EQ(scheduler.pending(), 0U);
    scheduler.advance(60);
    EXPECT_EQ(source.samplersMade, 1);
    EXPECT_FALSE(scheduler.finishWork());
}

TEST_F(MemoryMonitorTest, dropsASampleThatComesAfterItWasSwitchedOff) {
    source.sample = sampleOf(2);
    monitor->setActive(true);
    monitor->setActive(false);
    finish();
    EXPECT_TRUE(monitor->byApp().empty());
    EXPECT_EQ(monitor->stats(), MemoryStats());
}

TEST_F(MemoryMonitorTest, aSampleStartedBeforeOffCountsWhenItIsOnAgain) {
    source.sample = sampleOf(2);
    monitor->setActive(true);
    monitor->setActive(false);
    monitor->setActive(true);
    finish();
    EXPECT_EQ(monitor->byApp(), (MemoryMonitor::ByApp{{mail, 2}}));
}

TEST_F(MemoryMonitorTest, entriesOfOneApplicationAreSummed) {
    source.sample.applications = {usage(mail, 3), usage(notes, 1), usage(mail, 2)};
    monitor->setActive(true);
    finish();
    EXPECT_EQ(monitor->byApp(), (MemoryMonitor::ByApp{{mail, 5}, {notes, 1}}));
}

TEST_F(MemoryMonitorTest, aSumThatOverflowsStopsTheProgram) {
    source.sample.applications = {usage(mail, std::numeric_limits<std::uint64_t>::max()), usage(mail, 1)};
    monitor->setActive(true);
    EXPECT_DEATH(scheduler.finishWork(), "Quillary: .*overflow");
}

TEST_F(MemoryMonitorTest, theWorkerTakesTheSample) {
    monitor->setActive(true);
    EXPECT_EQ(monitor->stats().total, 0U);
    EXPECT_TRUE(scheduler.finishWork());
    EXPECT_FALSE(scheduler.finishWork());
}

TEST_F(MemoryMonitorTest, aSampleMayArriveAfterTheMonitorIsGone) {
    source.sample = sampleOf(2);
    monitor->setActive(true);
    monitor.reset();
    EXPECT_EQ(scheduler.pending(), 0U);
    finish();
}

TEST_F(MemoryMonitorTest, switchingOffWhileFiguresArePublishedKeepsTheApplicationsForgotten) {
    source.sample = sampleOf(2);
    QObject::connect(monitor.get(), &MemoryMonitor::statsChanged, monitor.get(),
                     [this] { monitor->setActive(false); });
    monitor->setActive(true);
    finish();
    EXPECT_TRUE(monitor->byApp().empty());
}

TEST_F(MemoryMonitorTest, badgesComeFromTheLatestFigures) {
    monitor->setActive(true);
    finish();
    EXPECT_EQ(monitor->badge(mail), RamBadge::none);
    source.sample = {.stats = {.total = 16 * gibibyte},
                     .applications = {usage(mail, 3 * gibibyte), usage(notes, 3 * gibibyte)}};
    scheduler.advance(4);
    finish();
    // Both are at the top, and both below 3.2 GiB.
    EXPECT_EQ(monitor->badge(mail), RamBadge::heavy);
    EXPECT_EQ(monitor->badge(notes), RamBadge::heavy);
    EXPECT_EQ(monitor->badge("/Applications/Other.app"), RamBadge::none);
    source.sample.stats.pressure = MemoryPressure::warning;
    scheduler.advance(4);
    finish();
    EXPECT_EQ(monitor->badge(mail), RamBadge::hog);
    EXPECT_EQ(monitor->badge(notes), RamBadge::hog);
    source.sample.applications.front().bytes += 1;
    scheduler.advance(4);
    finish();
    EXPECT_EQ(monitor->badge(mail), RamBadge::hog);
    EXPECT_EQ(monitor->badge(notes), RamBadge::heavy);
}

// Samples end when the test lets them, each on a thread of its own.
class GatedSource final : public MemorySource {
public:
    [[nodiscard]] Sampler sampler() override {
        const auto number = made++;
        return [gates = gates, number] {
            gates->at(number).acquire();
            return sampleOf(number + 1);
        };
    }

    using Gates = std::array<std::binary_semaphore, 2>;
    std::shared_ptr<Gates> gates{new Gates{std::binary_semaphore(0), std::binary_semaphore(0)}};
    std::size_t made = 0;
};

bool waitFor(const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < 20'000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return condition();
}

TEST(MemoryMonitorWorkers, anOlderSampleNeverReplacesANewerOne) {
    QtScheduler scheduler;
    GatedSource source;
    MemoryMonitor monitor(scheduler, source);
    monitor.setActive(true);
    monitor.setActive(false);
    monitor.setActive(true);
    ASSERT_EQ(source.made, 2U);
    source.gates->at(1).release();
    ASSERT_TRUE(waitFor([&] { return monitor.stats().used == 2; }));
    const Count changes(&monitor, &MemoryMonitor::statsChanged);
    source.gates->at(0).release();
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_EQ(changes.times, 0);
    EXPECT_EQ(monitor.stats().used, 2U);
}

TEST(MemoryMonitorWorkers, theEndDoesNotWaitForASampleThatHangs) {
    GatedSource source;
    {
        QtScheduler scheduler;
        MemoryMonitor monitor(scheduler, source);
        monitor.setActive(true);
    }
    // An end that waited for the sample would never get here, where its gate opens.
    source.gates->at(0).release();
}

} // namespace
} // namespace quillary::test
