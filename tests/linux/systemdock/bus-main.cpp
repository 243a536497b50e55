#include "tests/linux/World.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

namespace quillary::test {

namespace {

// Outside the world's folders, which every test empties.
std::filesystem::path offers() {
    return World::root().string() + "-services";
}

// A service that the bus could start, to check that it doesn't.
void offerXfconf(GTestDBus* daemon) {
    writeScript(offers() / "start-xfconf", "touch " + (offers() / "started").string());
    writeFile(offers() / "org.xfce.Xfconf.service",
              "[D-BUS Service]\nName=org.xfce.Xfconf\nExec=" + (offers() / "start-xfconf").string() + "\n");
    g_test_dbus_add_service_dir(daemon, offers().c_str());
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::testing::InitGoogleTest(&argc, argv);
    auto* daemon = g_test_dbus_new(G_TEST_DBUS_NONE);
    quillary::test::offerXfconf(daemon);
    g_test_dbus_up(daemon);
    const int result = RUN_ALL_TESTS();
    // Our own connection to the bus lives as long as the program; ending the daemon must not wait for it.
    g_test_dbus_stop(daemon);
    std::filesystem::remove_all(quillary::test::offers());
    quillary::test::World::leave();
    return result;
}
