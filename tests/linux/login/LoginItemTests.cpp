#include "platform/linux/login/LinuxLoginItem.h"
#include "tests/core/Succeeded.h"
#include "tests/core/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillary::test {

namespace {

namespace fs = std::filesystem;
using Status = LoginItem::Status;

class LoginItemTest : public testing::Test {
protected:
    LoginItemTest() {
        set("XDG_CONFIG_HOME", (folder.path() / "user").string());
        set("XDG_CONFIG_DIRS",
            (folder.path() / "first").string() + ":" + (folder.path() / "second").string());
        set("XDG_CURRENT_DESKTOP", "TEST");
    }
    void TearDown() override {
        for (const auto& [name, value] : m_former) {
            if (value) {
                setenv(name.c_str(), value->c_str(), 1);
            } else {
                unsetenv(name.c_str());
            }
        }
    }

    void set(const std::string& name, const std::string& value) {
        const char* before = std::getenv(name.c_str());
        m_former.emplace_back(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
        setenv(name.c_str(), value.c_str(), 1);
    }
    [[nodiscard]] fs::path entry(const std::string& where) const {
        return folder.path() / where / "autostart" / "quillary.desktop";
    }
    void put(const std::string& where, const std::string& keys) const {
        fs::create_directories(entry(where).parent_path());
        std::ofstream(entry(where)) << "[Desktop Entry]\nType=Application\nName=Q\nExec=x\n" << keys;
    }
    [[nodiscard]] static std::string read(const fs::path& file) {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    TemporaryFolder folder;
    LinuxLoginItem item{{.id = "quillary", .name = "Quillary", .path = "/opt/quillary/bin/quillary"}};

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> m_former;
};

} // namespace

TEST_F(LoginItemTest, registeringWritesAnEntryThatStartsTheProgram) {
    EXPECT_EQ(item.status(), Status::disabled);
    EXPECT_TRUE(succeeded(item.registerItem()));
    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_NE(read(entry("user")).find("\nExec=\"/opt/quillary/bin/quillary\"\n"), std::string::npos);
}

TEST_F(LoginItemTest, unregisteringRemovesItAndTwiceIsNoError) {
    ASSERT_TRUE(succeeded(item.registerItem()));
    EXPECT_TRUE(succeeded(item.unregisterItem()));
    EXPECT_EQ(item.status(), Status::disabled);
    EXPECT_FALSE(fs::exists(entry("user")));
    EXPECT_TRUE(succeeded(item.unregisterItem()));
}

TEST_F(LoginItemTest, anEntryThatAnotherProgramSwitchedOffIsSwitchedOnAgain) {
    put("user", "X-GNOME-Autostart-enabled=false\n");
    EXPECT_EQ(item.status(), Status::disabled);
    EXPECT_TRUE(succeeded(item.registerItem()));
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemTest, anEntryOfTheSystemCountsUntilTheUserHidesIt) {
    put("second", "");
    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_TRUE(succeeded(item.unregisterItem()));
    EXPECT_EQ(item.status(), Status::disabled);
    EXPECT_NE(read(entry("user")).find("\nHidden=true\n"), std::string::npos);
    EXPECT_TRUE(succeeded(item.registerItem()));
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemTest, theFirstOfTheSystemsFoldersDecides) {
    put("first", "Hidden=true\n");
    put("second", "");
    EXPECT_EQ(item.status(), Status::disabled);
    put("first", "OnlyShowIn=TEST;\n");
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemTest, withoutTheVariablesTheStandardsFoldersCount) {
    set("XDG_CONFIG_HOME", "relative");
    set("HOME", (folder.path() / "home").string());
    ASSERT_TRUE(succeeded(item.registerItem()));
    EXPECT_TRUE(fs::exists(folder.path() / "home/.config/autostart/quillary.desktop"));
}

TEST_F(LoginItemTest, aRefusedWriteSaysWhichFileAndWhy) {
    fs::create_directories(folder.path() / "user");
    std::ofstream(folder.path() / "user/autostart") << "a file";
    const auto changed = item.registerItem();
    ASSERT_FALSE(changed);
    EXPECT_TRUE(
        changed.error().starts_with("cannot create " + (folder.path() / "user/autostart").string() + ": "))
        << changed.error();
    EXPECT_EQ(item.status(), Status::disabled);
    fs::remove(folder.path() / "user/autostart");
    fs::create_directories(entry("user"));
    const auto second = item.registerItem();
    ASSERT_FALSE(second);
    EXPECT_TRUE(second.error().starts_with("cannot write " + entry("user").string() + ": "))
        << second.error();
}

TEST_F(LoginItemTest, aRefusedRemovalSaysWhichFileAndWhy) {
    fs::create_directories(entry("user") / "something inside");
    const auto changed = item.unregisterItem();
    ASSERT_FALSE(changed);
    EXPECT_TRUE(changed.error().starts_with("cannot remove " + entry("user").string() + ": "))
        << changed.error();
}

TEST_F(LoginItemTest, aProgramThatNoEntryCanNameIsRefused) {
    LinuxLoginItem odd({.id = "quillary", .name = "Quillary", .path = "/a=b/quillary"});
    EXPECT_EQ(odd.registerItem(), Failure("an entry cannot start /a=b/quillary"));
    EXPECT_FALSE(fs::exists(entry("user")));
}

} // namespace quillary::test
