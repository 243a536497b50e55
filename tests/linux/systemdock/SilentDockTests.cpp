#include "tests/linux/systemdock/BusDockTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillary::test {

namespace {

// A bus that takes connections into its queue and never says a word.
class SilentBus {
public:
    explicit SilentBus(const std::filesystem::path& path)
        : descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const auto text = path.string();
        std::copy_n(text.begin(), std::min(text.size(), sizeof address.sun_path - 1),
                    std::begin(address.sun_path));
        if (::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(descriptor, 8) != 0) {
            throw std::runtime_error("no socket");
        }
        ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + text).c_str(), 1);
    }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;
    ~SilentBus() { ::close(descriptor); }

private:
    int descriptor;
};

class SilentDockTest : public BusDockTest {
protected:
    void TearDown() override { std::filesystem::remove(path); }

    // Beside the world's folders, which every test empties.
    const std::filesystem::path path = World::root().string() + "-bus";
    const SilentBus bus{path};
};

TEST_F(SilentDockTest, panelsAreGivenUpAfterASecond) {
    for (const char* desktop : {"XFCE", "KDE"}) {
        log.lines.clear();
        const auto dock = newDock(desktop);
        HiderRun run(*dock);
        EXPECT_LT(seconds([&] { EXPECT_EQ(run.hide(), nothing); }), 2.5) << desktop;
        EXPECT_LT(seconds([&] { run.show(); }), 2.5) << desktop;
        // A start and a quit.
        EXPECT_EQ(log.lines.size(), 2U) << desktop;
        EXPECT_TRUE(log.lines[0].ends_with("'s panels: the session bus does not answer")) << log.lines[0];
    }
}

#ifdef QUILLARY_DOCK_SCHEMAS
TEST_F(SilentDockTest, gnomesSettingsAreGivenUpAfterASecond) {
    const auto dock = newDock("GNOME");
    ASSERT_NE(dock, nullptr);
    HiderRun run(*dock);
    EXPECT_LT(seconds([&] { EXPECT_EQ(run.hide(), away); }), 2.5);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not be sure of GNOME's dock: the settings service does not "
                                "answer"}));
}
#endif

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::setenv("GSETTINGS_BACKEND", "dconf", 1);
#ifdef QUILLARY_DOCK_SCHEMAS
    ::setenv("GSETTINGS_SCHEMA_DIR", QUILLARY_DOCK_SCHEMAS, 1);
#endif
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    // Threads still wait for the bus.
    std::_Exit(result);
}
