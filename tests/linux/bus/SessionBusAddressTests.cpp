#include "platform/linux/bus/SessionBusAddress.h"
#include "tests/linux/World.h"
#include "tests/linux/bus/SilentBus.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

class SessionBusAddressTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        std::filesystem::create_directories(World::root() / "runtime");
    }
    void TearDown() override { ::setenv(variable, "unix:path=/nonexistent/session-bus", 1); }

    [[nodiscard]] static std::string address() {
        const char* value = std::getenv(variable);
        return value != nullptr ? value : "unset";
    }

    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";
};

TEST_F(SessionBusAddressTest, theSessionsOwnIsKept) {
    ::setenv(variable, "unix:path=/run/user/1000/bus", 1);
    SessionBusAddress::forbidLaunch();
    EXPECT_EQ(address(), "unix:path=/run/user/1000/bus");
    EXPECT_FALSE(SessionBusAddress::isStandIn());
}

TEST_F(SessionBusAddressTest, theBusOfTheRuntimeFolderIsLeftToTheLibraries) {
    const SilentBus bus(World::root() / "runtime/bus");
    ::unsetenv(variable);
    SessionBusAddress::forbidLaunch();
    EXPECT_EQ(address(), "unset");
    EXPECT_FALSE(SessionBusAddress::isStandIn());
}

TEST_F(SessionBusAddressTest, whereALibraryWouldLaunchOneItConnectsToNothing) {
    writeFile(World::root() / "runtime/bus", "no socket");
    for (const char* launching : {"", "autolaunch:", "autolaunch:scope=user"}) {
        ::setenv(variable, launching, 1);
        SessionBusAddress::forbidLaunch();
        EXPECT_EQ(address(), "unix:path=/nonexistent/quillary-session-bus") << launching;
        EXPECT_TRUE(SessionBusAddress::isStandIn());
    }
    ::unsetenv(variable);
    SessionBusAddress::forbidLaunch();
    EXPECT_EQ(address(), "unix:path=/nonexistent/quillary-session-bus");
}

} // namespace

} // namespace quillary::test
