#include "tests/linux/World.h"

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace quillary::test {

namespace {

std::filesystem::path& worldRoot() {
    static std::filesystem::path path;
    return path;
}

void set(const char* name, const std::filesystem::path& value) {
    ::setenv(name, value.c_str(), 1);
}

void makeFolders() {
    for (const auto& folder : {World::home(), World::userData(), World::config(),
                               World::systemData() / "applications", World::programs()}) {
        std::filesystem::create_directories(folder);
    }
}

} // namespace

void World::enter() {
    std::string name = (std::filesystem::temp_directory_path() / "quillary-linux-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    worldRoot() = name;
    makeFolders();
    set("HOME", home());
    set("XDG_DATA_HOME", userData());
    set("XDG_CONFIG_HOME", config());
    set("XDG_CONFIG_DIRS", root() / "no-config");
    set("XDG_DATA_DIRS", systemData());
    set("XDG_RUNTIME_DIR", root() / "runtime");
    set("XDG_CACHE_HOME", root() / "cache");
    set("PATH", programs().string() + ":/usr/bin:/bin");
    set("LANGUAGE", "de");
}

void World::leave() {
    std::error_code ignored;
    std::filesystem::remove_all(root(), ignored);
}

std::filesystem::path World::root() {
    return worldRoot();
}

std::filesystem::path World::home() {
    return root() / "home";
}

std::filesystem::path World::userData() {
    return root() / "user-data";
}

std::filesystem::path World::config() {
    return root() / "config";
}

std::filesystem::path World::systemData() {
    return root() / "system-data";
}

std::filesystem::path World::programs() {
    return root() / "programs";
}

void WorldTest::SetUp() {
    for (const auto& item : std::filesystem::directory_iterator(World::root())) {
        for (const auto& content : std::filesystem::directory_iterator(item)) {
            std::filesystem::remove_all(content);
        }
    }
    makeFolders();
}

void writeFile(const std::filesystem::path& path, const std::string& content) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeScript(const std::filesystem::path& path, const std::string& commands) {
    writeFile(path, "#!/bin/sh\n" + commands + "\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

std::string install(const std::string& id, const std::string& lines) {
    const auto path = World::systemData() / "applications" / id;
    writeFile(path, "[Desktop Entry]\nType=Application\n" + lines + "\n");
    return path.string();
}

void associate(const std::vector<std::pair<std::string, std::string>>& typesAndIds) {
    std::string list = "[Default Applications]\n";
    for (const auto& [type, id] : typesAndIds) {
        list.append(type).append("=").append(id).append("\n");
    }
    writeFile(World::config() / "mimeapps.list", list);
    for (const auto& [type, id] : typesAndIds) {
        const bool isThere = std::filesystem::exists(World::systemData() / "applications" / id);
        const auto expected = isThere ? id : std::string();
        for (int attempt = 0; attempt < 500; ++attempt) {
            const Released<GAppInfo, g_object_unref> info(
                g_app_info_get_default_for_type(type.c_str(), FALSE));
            if (expected == (info ? g_app_info_get_id(info.get()) : "")) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

std::string waitForLine(const std::filesystem::path& path) {
    for (int attempt = 0; attempt < 500; ++attempt) {
        auto text = readFile(path);
        if (text.ends_with('\n')) {
            return text;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return readFile(path);
}

} // namespace quillary::test
