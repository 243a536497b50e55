#include "tests/linux/bus/SilentBus.h"
#include "tests/linux/systemdock/BusDockTest.h"
#include "tests/linux/systemdock/GnomeSchemaCheck.h"
#include "tests/surroundings/Surroundings.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

class SilentDockTest : public BusDockTest {
protected:
    SilentDockTest() { ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1); }

    // Outside the world's folders, which every test empties.
    const SilentBus bus{World::root().string() + "-bus"};
};

TEST_F(SilentDockTest, panelsAreGivenUpAfterASecond) {
    for (const char* desktop : {"XFCE", "KDE"}) {
        log.lines.clear();
        const auto dock = newDock(desktop);
        HiderRun run(*dock);
        EXPECT_LT(seconds([&] { EXPECT_EQ(run.hide(), nothing); }), 2.5) << desktop;
        EXPECT_LT(seconds([&] { run.show(); }), 2.5) << desktop;
        // One line at the start and one at the quit.
        EXPECT_EQ(log.lines.size(), 2U) << desktop;
        EXPECT_TRUE(log.lines[0].ends_with("'s panels: the session bus does not answer")) << log.lines[0];
    }
}

TEST_F(SilentDockTest, gnomesSettingsAreGivenUpAfterASecond) {
    const auto dock = newDock("GNOME");
    ASSERT_NE(dock, nullptr);
    HiderRun run(*dock);
    EXPECT_LT(seconds([&] { EXPECT_EQ(run.hide(), away); }), 2.5);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not be sure of GNOME's dock: the settings service does not "
                                "answer"}));
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::setenv("GSETTINGS_BACKEND", "dconf", 1);
    // The backend is a module of the machine's.
    ::unsetenv("GIO_MODULE_DIR");
    ::setenv("GSETTINGS_SCHEMA_DIR", QUILLARY_DOCK_SCHEMAS, 1);
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    quillary::test::Surroundings::remove();
    // Threads still wait for the bus.
    std::_Exit(result);
}
