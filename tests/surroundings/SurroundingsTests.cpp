#include "tests/surroundings/Surroundings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillary::test {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::size_t foldersOf(const std::filesystem::path& parent) {
    const std::filesystem::directory_iterator entries(parent);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

} // namespace

TEST(TestSurroundings, foldersAreOwnAndPrivate) {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "XDG_RUNTIME_DIR", "XDG_CONFIG_DIRS", "XDG_DATA_DIRS", "GIO_MODULE_DIR"}) {
        struct stat status {};
        ASSERT_EQ(::stat(variable(name).c_str(), &status), 0) << name;
        EXPECT_EQ(status.st_mode, S_IFDIR | S_IRWXU) << name;
        EXPECT_EQ(status.st_uid, ::geteuid()) << name;
        EXPECT_EQ(std::filesystem::path(variable(name)).parent_path(), Surroundings::root()) << name;
    }
}

TEST(TestSurroundings, nothingOfTheCallersDesktopIsLeft) {
    for (const char* name : {"DISPLAY",
                             "WAYLAND_DISPLAY",
                             "XAUTHORITY",
                             "XDG_CURRENT_DESKTOP",
                             "XDG_SESSION_TYPE",
                             "DESKTOP_SESSION",
                             "KDE_FULL_SESSION",
                             "GNOME_DESKTOP_SESSION_ID",
                             "QT_QPA_PLATFORMTHEME",
                             "QT_STYLE_OVERRIDE",
                             "QT_PLUGIN_PATH",
                             "QT_SCALE_FACTOR",
                             "QT_IM_MODULE",
                             "XMODIFIERS",
                             "QT_ACCESSIBILITY",
                             "GTK_THEME",
                             "GTK_MODULES",
                             "GDK_SCALE",
                             "GIO_EXTRA_MODULES",
                             "LANGUAGE",
                             "QY_SNAPSHOT_DIR",
                             "SESSION_MANAGER",
                             "G_DEBUG"}) {
        EXPECT_EQ(std::getenv(name), nullptr) << name;
    }
    EXPECT_EQ(variable("LC_ALL"), "C.UTF-8");
    EXPECT_EQ(variable("DBUS_SESSION_BUS_ADDRESS"), "unix:path=/nonexistent/session-bus");
    EXPECT_EQ(variable("DBUS_SYSTEM_BUS_ADDRESS"), "unix:path=/nonexistent/system-bus");
}

TEST(TestSurroundings, holdOnARichDesktopAndLeaveNothingBehind) {
    const std::string parent = Surroundings::root() / "parent";
    std::filesystem::create_directory(parent);
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const std::string command =
        "TMPDIR='" + parent +
        "' HOME=/ DISPLAY=:99 WAYLAND_DISPLAY=wayland-0 XAUTHORITY=/x XDG_CURRENT_DESKTOP=GNOME "
        "XDG_SESSION_TYPE=wayland DESKTOP_SESSION=plasma KDE_FULL_SESSION=true GNOME_DESKTOP_SESSION_ID=x "
        "QT_QPA_PLATFORMTHEME=gtk3 QT_STYLE_OVERRIDE=kvantum QT_PLUGIN_PATH=/x QT_SCALE_FACTOR=2 "
        "QT_IM_MODULE=ibus XMODIFIERS=@im=ibus QT_ACCESSIBILITY=1 GTK_THEME=Adwaita:dark "
        "GTK_MODULES=gail GDK_SCALE=2 GIO_EXTRA_MODULES=/x LANGUAGE=de LC_ALL=tr_TR.UTF-8 "
        "QY_SNAPSHOT_DIR=/x SESSION_MANAGER=local/x G_DEBUG=fatal-warnings XDG_RUNTIME_DIR=/run/user/1000 "
        "XDG_DATA_DIRS=/usr/share DBUS_SESSION_BUS_ADDRESS=autolaunch: '" +
        program + "' --gtest_filter=TestSurroundings.*-*RichDesktop* >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(foldersOf(parent), 0U);
}

TEST(TestSurroundings, aForkedChildLeavesTheFolder) {
    const pid_t child = ::fork();
    if (child == 0) {
        std::exit(0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(std::filesystem::is_directory(variable("HOME")));
}

} // namespace quillary::test
