#include "platform/linux/launch/Launcher.h"
#include "platform/linux/launch/TransientScope.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/bus/SilentBus.h"
#include "tests/surroundings/Surroundings.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>

#include <unistd.h>

namespace quillary::test {

namespace {

TEST(SilentBusTest, callsReturnAtOnceAndTheWorkerGivesUp) {
    SilentBus bus(World::root() / "bus");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
    ManualScheduler scheduler;
    LinesLog log;
    Launcher launcher(scheduler, log);
    const auto entry = install("a.desktop", "Name=A\nExec=true");
    launcher.launch(entry);
    launcher.reveal("/tmp");
    launcher.open("/tmp");
    EXPECT_EQ(bus.connections(), 0U) << "the calls leave the bus to the worker";
    while (scheduler.finishWork()) {
    }
    EXPECT_EQ(bus.connections(), 1U);
    EXPECT_FALSE(bus.isGivenUp()) << "the worker went on although its connection still waits";
    EXPECT_EQ(log.lines, (std::vector<std::string>{
                             "Quillary: could not launch " + entry + ": the session bus does not answer",
                             "Quillary: could not reveal /tmp: the session bus does not answer",
                             "Quillary: could not open /tmp: the session bus does not answer"}));
}

TEST(SilentBusTest, userManagerThatSaysNothingIsGivenUp) {
    std::filesystem::create_directories(World::root() / "runtime");
    const SilentBus bus(World::root() / "runtime" / "bus");
    const auto ended = std::make_shared<std::promise<void>>();
    auto end = ended->get_future();
    // Detached: on a failure the thread never ends.
    std::thread([ended] {
        putInScopeOfItsOwn(nullptr, "a", ::getpid());
        ended->set_value();
    }).detach();
    EXPECT_EQ(end.wait_for(std::chrono::seconds(1)), std::future_status::timeout);
    EXPECT_EQ(end.wait_for(std::chrono::seconds(9)), std::future_status::ready);
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    quillary::test::Surroundings::remove();
    // A thread still waits for the bus.
    std::_Exit(result);
}
