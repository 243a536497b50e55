#include "tests/surroundings/Surroundings.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <unistd.h>

// POSIX leaves its declaration to the program; glibc declares it as well.
extern char** environ; // NOLINT(readability-redundant-declaration)

namespace quillary::test::Surroundings {

namespace {

// Variables by which desktops, toolkits and service managers change what a program does.
constexpr std::array<std::string_view, 30> foreignPrefixes = {"ACCESSIBILITY_",
                                                              "AT_SPI_",
                                                              "CLUTTER_",
                                                              "DBUS_",
                                                              "DCONF_",
                                                              "DESKTOP_",
                                                              "DISPLAY",
                                                              "FC_",
                                                              "FONTCONFIG_",
                                                              "FREETYPE_",
                                                              "GDK_",
                                                              "GIO_",
                                                              "GNOME_",
                                                              "GSETTINGS_",
                                                              "GTK",
                                                              "G_",
                                                              "IBUS_",
                                                              "KDE",
                                                              "LANG",
                                                              "LC_",
                                                              "NO_AT_BRIDGE",
                                                              "PLASMA_",
                                                              "QML",
                                                              "QT",
                                                              "QY_",
                                                              "SESSION_",
                                                              "WAYLAND_",
                                                              "XAUTHORITY",
                                                              "XDG_",
                                                              "XMODIFIERS"};

struct Folder {
    std::filesystem::path path;
    pid_t owner = 0;
};

// Never destroyed: exit handlers and static objects of the tests may still ask for it.
Folder& folder() {
    static auto* only = new Folder;
    return *only;
}

void clearForeignVariables() {
    std::vector<std::string> names;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        const std::string_view text = *variable;
        const auto name = text.substr(0, text.find('='));
        if (std::ranges::any_of(foreignPrefixes,
                                [&](std::string_view prefix) { return name.starts_with(prefix); })) {
            names.emplace_back(name);
        }
    }
    for (const auto& name : names) {
        ::unsetenv(name.c_str());
    }
}

void makeFolder() {
    std::error_code error;
    auto parent = std::filesystem::temp_directory_path(error);
    std::string name = (error ? std::filesystem::path("/tmp") : parent) / "quillary-test-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        std::perror("no folder for the surroundings of the tests");
        std::_Exit(EXIT_FAILURE);
    }
    folder() = {.path = name, .owner = ::getpid()};
}

void setToFolder(const char* variable, const char* name) {
    const auto path = root() / name;
    std::filesystem::create_directory(path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    ::setenv(variable, path.c_str(), 1);
}

void set(const char* variable, const char* value) {
    ::setenv(variable, value, 1);
}

// Before static objects are made, which may read the environment as well.
[[gnu::constructor(101)]] void enter() {
    clearForeignVariables();
    makeFolder();
    static_cast<void>(std::atexit(remove));
    setToFolder("HOME", "home");
    setToFolder("XDG_CONFIG_HOME", "config");
    setToFolder("XDG_DATA_HOME", "data");
    setToFolder("XDG_CACHE_HOME", "cache");
    setToFolder("XDG_STATE_HOME", "state");
    setToFolder("XDG_RUNTIME_DIR", "runtime");
    setToFolder("XDG_CONFIG_DIRS", "system-config");
    setToFolder("XDG_DATA_DIRS", "system-data");
    setToFolder("GIO_MODULE_DIR", "gio-modules");
    // A variable that is unset makes libdbus and GDBus launch a bus; this path must not exist anywhere.
    set("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/session-bus");
    set("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/system-bus");
    set("GSETTINGS_BACKEND", "memory");
    set("GIO_USE_VFS", "local");
    set("GIO_USE_VOLUME_MONITOR", "unix");
    set("NO_AT_BRIDGE", "1");
    // GTK would choose one by the locale.
    set("GTK_IM_MODULE", "gtk-im-context-simple");
    set("LANG", "C.UTF-8");
    set("LC_ALL", "C.UTF-8");
    set("FONTCONFIG_FILE", QUILLARY_TEST_FONTS);
}

} // namespace

const std::filesystem::path& root() {
    return folder().path;
}

void remove() {
    if (::getpid() == folder().owner) {
        std::error_code ignored;
        std::filesystem::remove_all(folder().path, ignored);
    }
}

std::vector<std::string> withMachineData(const std::vector<std::string>& command) {
    std::vector<std::string> result{"env", "XDG_DATA_DIRS=/usr/share", "XDG_CONFIG_DIRS=/etc/xdg"};
    result.insert(result.end(), command.begin(), command.end());
    return result;
}

} // namespace quillary::test::Surroundings
