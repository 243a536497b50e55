#include "core/SettingsStore.h"
#include "tests/core/Succeeded.h"
#include "tests/core/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include <sys/stat.h>

namespace quillary {

namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::succeeded;
using test::TemporaryFolder;
using test::writeFile;
using testing::HasSubstr;

using Names = std::set<std::string>;

Settings someSettings() {
    Settings settings({DockConfig("37D8832A-2D66-02CA-B9F7-8F30A301B230", "Büro", {"/Applications/A b.app"})},
                      true);
    settings.docks[0].iconSize = 52.5;
    settings.savedSystemDock = DockPrefs{};
    return settings;
}

TEST(SettingsStore, aMissingFileGivesDefaultsAndCreatesNothing) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "settings.json");
    EXPECT_EQ(store.load(), Settings());
    EXPECT_EQ(folder.names(), Names{});
}

TEST(SettingsStore, keepsItsLocation) {
    EXPECT_EQ(SettingsStore("/some/where.json").url(), "/some/where.json");
}

TEST(SettingsStore, anEmptyObjectGivesDefaultsWithoutACopy) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "settings.json", "{}");
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(SettingsStore, damagedFileIsCopiedAside) {
    const TemporaryFolder folder;
    const std::string damage("not \0 JSON \xff", 12);
    writeFile(folder.path() / "settings.json", damage);
    writeFile(folder.path() / "settings.json.broken", "an earlier and longer copy of something");
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_EQ(readFile(folder.path() / "settings.json"), damage);
    EXPECT_EQ(readFile(folder.path() / "settings.json.broken"), damage);
    EXPECT_EQ(folder.names(), (Names{"settings.json", "settings.json.broken"}));
}

TEST(SettingsStore, anEmptyFileIsDamaged) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "settings.json", "");
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_EQ(readFile(folder.path() / "settings.json.broken"), "");
    EXPECT_EQ(folder.names(), (Names{"settings.json", "settings.json.broken"}));
}

TEST(SettingsStore, anUnknownStyleDamagesTheWholeFile) {
    const TemporaryFolder folder;
    const std::string text = R"({"onboarded": true, "docks": [{"screenKey": "K", "style": "wood"}]})";
    writeFile(folder.path() / "settings.json", text);
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_EQ(readFile(folder.path() / "settings.json.broken"), text);
}

TEST(SettingsStore, aCopyThatCannotBeWrittenIsNoFailure) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "settings.json", "damaged");
    fs::create_directory(folder.path() / "settings.json.broken");
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_TRUE(fs::is_directory(folder.path() / "settings.json.broken"));
}

TEST(SettingsStore, whatCannotBeReadGivesDefaultsWithoutACopy) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "folder");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder.path() / "endless");
    fs::create_symlink("self", folder.path() / "self");
    for (const char* name : {"folder", "pipe", "endless", "self"}) {
        EXPECT_EQ(SettingsStore(folder.path() / name).load(), Settings()) << name;
    }
    EXPECT_EQ(folder.names(), (Names{"folder", "pipe", "endless", "self"}));
}

TEST(SettingsStore, aLongFileIsReadAsAnyOther) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    constexpr std::size_t length = std::size_t{20} * 1024 * 1024;
    writeFile(file, R"({"onboarded": true})" + std::string(length, ' '));
    EXPECT_EQ(SettingsStore(file).load(), Settings({}, true));
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(SettingsStore, sizeIsBounded) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    const std::string text = R"({"onboarded": true})";
    writeFile(file, text + std::string(SettingsStore::sizeLimit - text.size(), ' '));
    EXPECT_EQ(SettingsStore(file).load(), Settings({}, true));
    EXPECT_EQ(folder.names(), Names{"settings.json"});
    writeFile(file, text + std::string(SettingsStore::sizeLimit - text.size() + 1, ' '));
    EXPECT_EQ(SettingsStore(file).load(), Settings());
}

TEST(SettingsStore, aFileThatIsTooLargeIsCopiedAsideWholeAndNotCalledBroken) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    const std::string content = R"({"onboarded": true})" + std::string(SettingsStore::sizeLimit, ' ');
    writeFile(file, content);
    writeFile(folder.path() / "settings.json.too-large", "an earlier copy");
    // A copy that is written in place reaches whoever has the earlier one open.
    fs::create_hard_link(folder.path() / "settings.json.too-large", folder.path() / "earlier");
    EXPECT_EQ(SettingsStore(file).load(), Settings());
    EXPECT_TRUE(readFile(file) == content);
    EXPECT_TRUE(readFile(folder.path() / "settings.json.too-large") == content);
    EXPECT_EQ(readFile(folder.path() / "earlier"), "an earlier copy");
    EXPECT_EQ(folder.names(), (Names{"settings.json", "settings.json.too-large", "earlier"}));
}

TEST(SettingsStore, aTooLargeFileThatCannotBeCopiedIsNoFailure) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "settings.json", std::string(SettingsStore::sizeLimit + 1, ' '));
    fs::create_directory(folder.path() / "settings.json.too-large");
    EXPECT_EQ(SettingsStore(folder.path() / "settings.json").load(), Settings());
    EXPECT_TRUE(fs::is_empty(folder.path() / "settings.json.too-large"));
    EXPECT_EQ(folder.names(), (Names{"settings.json", "settings.json.too-large"}));
}

TEST(SettingsStore, whatWouldNotBeReadAgainIsNotWritten) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "settings.json");
    ASSERT_TRUE(succeeded(store.save(someSettings())));
    const Settings huge({DockConfig("K", std::string(SettingsStore::sizeLimit, 'n'), {})}, false);
    const auto saved = store.save(huge);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error(), HasSubstr("File too large"));
    EXPECT_EQ(store.load(), someSettings());
}

TEST(SettingsStore, numbersThatAreNotFiniteAreAnErrorAndLeaveTheFile) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "settings.json");
    ASSERT_TRUE(succeeded(store.save(someSettings())));
    const std::string before = readFile(store.url());
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        Settings size = someSettings();
        size.docks[0].iconSize = value;
        const auto sizeSaved = store.save(size);
        ASSERT_FALSE(sizeSaved) << value;
        EXPECT_THAT(sizeSaved.error(), HasSubstr("iconSize"));
        Settings delay = someSettings();
        delay.savedSystemDock = DockPrefs{true, value};
        const auto delaySaved = store.save(delay);
        ASSERT_FALSE(delaySaved) << value;
        EXPECT_THAT(delaySaved.error(), HasSubstr("delay"));
        EXPECT_EQ(readFile(store.url()), before);
    }
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(SettingsStore, savingAndLoadingIsTheIdentity) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "settings.json");
    EXPECT_TRUE(succeeded(store.save(someSettings())));
    EXPECT_EQ(store.load(), someSettings());
    EXPECT_TRUE(succeeded(store.save(Settings())));
    EXPECT_EQ(store.load(), Settings());
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(SettingsStore, missingFoldersAreCreatedForTheOwnerAlone) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "share" / "Quillary" / "settings.json");
    EXPECT_TRUE(succeeded(store.save(someSettings())));
    EXPECT_EQ(store.load(), someSettings());
    EXPECT_EQ(fs::status(folder.path() / "share").permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(folder.path() / "share" / "Quillary").permissions(), fs::perms::owner_all);
}

TEST(SettingsStore, aFolderThatCannotBeCreatedFails) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "file", "in the way");
    const auto saved =
        SettingsStore(folder.path() / "file" / "Quillary" / "settings.json").save(someSettings());
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error(), HasSubstr("Not a directory"));
    EXPECT_EQ(folder.names(), Names{"file"});
}

TEST(SettingsStore, aPathTooLongIsRefusedAtOnce) {
    const TemporaryFolder folder;
    fs::path file = folder.path() / "made";
    std::string folders;
    for (int level = 0; level < 500000; ++level) {
        folders += "/a";
    }
    file += folders;
    EXPECT_EQ(SettingsStore(file / "settings.json").save(someSettings()), Failure("File name too long"));
    EXPECT_EQ(folder.names(), Names{});
}

TEST(SettingsStore, aDamagedScreenNameDoesNotKeepTheRestFromBeingSaved) {
    const TemporaryFolder folder;
    const SettingsStore store(folder.path() / "settings.json");
    EXPECT_TRUE(succeeded(store.save(Settings({DockConfig("K", "\xff", {"/a"})}, true))));
    EXPECT_EQ(store.load(), Settings({DockConfig("K", "\xef\xbf\xbd", {"/a"})}, true));
}

} // namespace

} // namespace quillary
