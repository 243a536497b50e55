#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace quillary::test {

/// The folders that a test process has for its own, and can empty for each test. GLib reads the variables
/// that name them once, so they stand for the whole process, set before anything else runs.
class World {
public:
    /// Makes the folders and sets HOME, XDG_*, PATH and the language.
    static void enter();
    /// Removes them.
    static void leave();

    static std::filesystem::path root();
    static std::filesystem::path home();
    /// XDG_DATA_HOME, XDG_CONFIG_HOME and the only folder of XDG_DATA_DIRS.
    static std::filesystem::path userData();
    static std::filesystem::path config();
    static std::filesystem::path systemData();
    /// First folder of PATH.
    static std::filesystem::path programs();
};

/// Starts each test with empty folders.
class WorldTest : public ::testing::Test {
protected:
    void SetUp() override;
};

/// Writes the file and the folders above it.
void writeFile(const std::filesystem::path& path, const std::string& content);
[[nodiscard]] std::string readFile(const std::filesystem::path& path);
/// Writes an executable shell script.
void writeScript(const std::filesystem::path& path, const std::string& commands);
/// Writes a desktop entry of the group's lines below the system's applications folder; returns its path.
std::string install(const std::string& id, const std::string& lines);
/// Makes the entries of the ids the default applications of the content types. Waits until GIO, which learns
/// of changed files by notification, says so, or for ids that aren't installed, says nothing.
void associate(const std::vector<std::pair<std::string, std::string>>& typesAndIds);
/// Waits up to 10 s until the file ends in a line break, and returns what it holds.
[[nodiscard]] std::string waitForLine(const std::filesystem::path& path);

} // namespace quillary::test
