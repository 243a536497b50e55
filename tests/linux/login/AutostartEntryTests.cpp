#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/login/AutostartEntry.h"
#include "tests/core/TemporaryFolder.h"

#include <gio/gdesktopappinfo.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

// The value of Exec as it stands in the entry's text.
std::string execOf(const std::string& program) {
    const auto text = AutostartEntry::text("Quillary", "quillary", program).value_or("");
    const std::string key = "\nExec=";
    const auto begin = text.find(key) + key.size();
    return text.substr(begin, text.find('\n', begin) - begin);
}

bool starts(const std::string& keys, const Strings& desktops = {}) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "entry.desktop";
    std::ofstream(file) << "[Desktop Entry]\nType=Application\nName=Q\n" << keys;
    return AutostartEntry::starts(file, desktops);
}

} // namespace

TEST(AutostartEntry, theProgramIsQuotedByTheRulesOfExec) {
    EXPECT_EQ(execOf("/usr/bin/quillary"), R"("/usr/bin/quillary")");
    EXPECT_EQ(execOf("/a b/c"), R"("/a b/c")");
    EXPECT_EQ(execOf("/100%/x"), R"("/100%%/x")");
    // Escaped as an argument, and its backslashes once more as a value.
    EXPECT_EQ(execOf("/a\"b"), R"("/a\\"b")");
    EXPECT_EQ(execOf("/$HOME`"), R"("/\\$HOME\\`")");
    EXPECT_EQ(execOf("/a\\b"), R"("/a\\\\b")");
    EXPECT_EQ(execOf("/a\nb\rc"), R"("/a\nb\rc")");
    // A tab needs no escape within a value.
    EXPECT_EQ(execOf("/a\tb"), "\"/a\tb\"");
}

TEST(AutostartEntry, theWholeEntry) {
    EXPECT_EQ(AutostartEntry::text("Quillary", "quillary", "/opt/my apps/quillary"),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=Quillary\n"
              "Icon=quillary\n"
              "Exec=\"/opt/my apps/quillary\"\n"
              "Terminal=false\n"
              "X-GNOME-Autostart-enabled=true\n");
}

TEST(AutostartEntry, anotherReaderFindsTheNamesAsTheyWere) {
    const std::string name = " \tNa\\me\n\tü;";
    const auto text = AutostartEntry::text(name, "ic\\on", "/bin/x");
    ASSERT_TRUE(text);
    const Released<GKeyFile, g_key_file_unref> keys(g_key_file_new());
    ASSERT_TRUE(g_key_file_load_from_data(keys.get(), text->data(), text->size(), G_KEY_FILE_NONE, nullptr));
    EXPECT_EQ(takeText(g_key_file_get_string(keys.get(), "Desktop Entry", "Name", nullptr)), name);
    EXPECT_EQ(takeText(g_key_file_get_string(keys.get(), "Desktop Entry", "Icon", nullptr)), "ic\\on");
}

TEST(AutostartEntry, aProgramThatNoEntryCanNameHasNone) {
    EXPECT_EQ(AutostartEntry::text("Quillary", "quillary", "/a=b/quillary"), std::nullopt);
    EXPECT_EQ(AutostartEntry::text("Quillary", "quillary", "/\xff/quillary"), std::nullopt);
    EXPECT_EQ(AutostartEntry::text("Quillary", "quillary", std::string("/a\0b", 4)), std::nullopt);
}

// No percent sign in the path: GLib does not find such a program, however it is written.
TEST(AutostartEntry, anotherReaderStartsThatVeryProgram) {
    const TemporaryFolder folder;
    const auto program = folder.path() / "we $ird \"pro'gram\\ `date` \xc3\xa4; & \n#";
    const auto trace = folder.path() / "trace";
    std::ofstream(program) << "#!/bin/sh\nprintf started >'" << trace.string() << "'\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const auto file = folder.path() / "entry.desktop";
    const auto text = AutostartEntry::text("Quillary", "quillary", program.string());
    ASSERT_TRUE(text);
    std::ofstream(file) << *text;

    const Released<GDesktopAppInfo, g_object_unref> entry(g_desktop_app_info_new_from_filename(file.c_str()));
    ASSERT_NE(entry, nullptr);
    ASSERT_TRUE(g_app_info_launch(G_APP_INFO(entry.get()), nullptr, nullptr, nullptr));
    const auto content = [&trace] {
        std::ifstream stream(trace);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    for (int i = 0; i < 500 && content().empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(content(), "started");
}

TEST(AutostartEntry, anEntryStartsItsProgramUnlessItSaysOtherwise) {
    EXPECT_TRUE(starts("Exec=x\n"));
    EXPECT_TRUE(starts("Exec=x\nHidden=false\nX-GNOME-Autostart-enabled=true\n"));
    EXPECT_FALSE(starts("Exec=x\nHidden=true\n"));
    EXPECT_FALSE(starts("Exec=x\nX-GNOME-Autostart-enabled=false\n"));
    EXPECT_FALSE(starts("Name=no program\n"));
    EXPECT_FALSE(starts("Exec=x\nType=Link\n"));
}

TEST(AutostartEntry, itCountsOnItsDesktopsOnly) {
    EXPECT_TRUE(starts("Exec=x\nOnlyShowIn=GNOME;XFCE;\n", {"ubuntu", "GNOME"}));
    EXPECT_FALSE(starts("Exec=x\nOnlyShowIn=GNOME;XFCE;\n", {"KDE"}));
    EXPECT_FALSE(starts("Exec=x\nOnlyShowIn=GNOME;\n"));
    EXPECT_FALSE(starts("Exec=x\nNotShowIn=KDE;\n", {"KDE"}));
    EXPECT_TRUE(starts("Exec=x\nNotShowIn=KDE;\n", {"XFCE"}));
}

TEST(AutostartEntry, whatIsNoEntryStartsNothing) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "entry.desktop";
    EXPECT_FALSE(AutostartEntry::starts(file, {}));
    EXPECT_FALSE(AutostartEntry::starts(folder.path(), {}));
    std::ofstream(file) << "no entry";
    EXPECT_FALSE(AutostartEntry::starts(file, {}));
    std::ofstream(file) << "[Desktop Entry]\nType=Application\nExec=x\n#" << std::string(65536, 'x') << "\n";
    EXPECT_FALSE(AutostartEntry::starts(file, {}));
}

TEST(AutostartEntry, hidingTakesItBack) {
    EXPECT_EQ(AutostartEntry::hiddenText("Quillary"),
              "[Desktop Entry]\nType=Application\nName=Quillary\nHidden=true\n");
}

} // namespace quillary::test
