#include "platform/linux/LinuxFolders.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace quillary::test {

namespace {

using Paths = std::vector<std::filesystem::path>;

class LinuxFoldersTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        set("HOME", "/home/me");
    }
    void TearDown() override {
        for (const auto& [name, value] : m_before) {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }

    void set(const char* name, const char* value) {
        const char* now = std::getenv(name);
        m_before.try_emplace(name, now != nullptr ? now : "");
        ::setenv(name, value, 1);
    }

private:
    std::map<std::string, std::string> m_before;
};

TEST_F(LinuxFoldersTest, theUsersFoldersAreThoseOfTheVariables) {
    set("XDG_CONFIG_HOME", "/c");
    set("XDG_DATA_HOME", "/d");
    EXPECT_EQ(LinuxFolders::configuration(), "/c");
    EXPECT_EQ(LinuxFolders::ownConfiguration(), "/c/Quillary");
    EXPECT_EQ(LinuxFolders::data(), "/d");
}

TEST_F(LinuxFoldersTest, relativePathsCountAsNotSet) {
    for (const char* value : {"relative", "./c", ""}) {
        set("XDG_CONFIG_HOME", value);
        set("XDG_DATA_HOME", value);
        EXPECT_EQ(LinuxFolders::configuration(), "/home/me/.config") << value;
        EXPECT_EQ(LinuxFolders::ownConfiguration(), "/home/me/.config/Quillary") << value;
        EXPECT_EQ(LinuxFolders::data(), "/home/me/.local/share") << value;
    }
}

TEST_F(LinuxFoldersTest, relativePathsOfListsAreLeftOut) {
    set("XDG_DATA_DIRS", "/a:b::/c:");
    set("XDG_CONFIG_DIRS", "x:/y");
    EXPECT_EQ(LinuxFolders::systemData(), (Paths{"/a", "/c"}));
    EXPECT_EQ(LinuxFolders::systemConfiguration(), (Paths{"/y"}));
}

TEST_F(LinuxFoldersTest, listsThatAreNotSetAreTheStandards) {
    set("XDG_DATA_DIRS", "");
    set("XDG_CONFIG_DIRS", "");
    EXPECT_EQ(LinuxFolders::systemData(), (Paths{"/usr/local/share", "/usr/share"}));
    EXPECT_EQ(LinuxFolders::systemConfiguration(), (Paths{"/etc/xdg"}));
}

TEST_F(LinuxFoldersTest, withoutAHomeTheUserDatabaseNamesOne) {
    set("HOME", "");
    EXPECT_TRUE(LinuxFolders::home().is_absolute());
    EXPECT_NE(LinuxFolders::home(), "/home/me");
}

} // namespace

} // namespace quillary::test
