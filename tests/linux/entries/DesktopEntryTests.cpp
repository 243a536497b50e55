#include "platform/linux/entries/DesktopEntry.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace quillary::test {

namespace {

class DesktopEntryTest : public WorldTest {
protected:
    static std::optional<DesktopEntry> read(const std::string& text,
                                            const std::vector<std::string>& desktops = {}) {
        const auto path = World::root() / "home" / "entry.desktop";
        writeFile(path, text);
        return readDesktopEntry(path.string(), "entry.desktop", desktops);
    }
};

TEST_F(DesktopEntryTest, allFieldsAreRead) {
    writeScript(World::programs() / "there", "true");
    const auto entry =
        read("# a comment\n[Desktop Entry]\nType=Application\nName=Files\nName[de]=Dateien\nIcon=folder\n"
             "Exec=env A=b /opt/files/nemo --new \"two words\" %U\nStartupWMClass=Nemo\nTryExec=there\n"
             "Categories=System;FileManager;\nTerminal=true\nDBusActivatable=true\nNoDisplay=true\n"
             "X-Flatpak=org.nemo.Nemo\n[Desktop Action new]\nName=Other\nExec=other\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->path, (World::home() / "entry.desktop").string());
    EXPECT_EQ(entry->id, "entry.desktop");
    EXPECT_EQ(entry->stem(), "entry");
    EXPECT_EQ(entry->name, "Files");
    EXPECT_EQ(entry->localisedName, "Dateien");
    EXPECT_EQ(entry->icon, "folder");
    EXPECT_EQ(entry->startupWmClass, "Nemo");
    EXPECT_EQ(entry->program, "nemo");
    EXPECT_EQ(entry->arguments, 4U);
    EXPECT_EQ(entry->sandbox, "org.nemo.Nemo");
    EXPECT_EQ(entry->categories, (std::vector<std::string>{"System", "FileManager"}));
    EXPECT_TRUE(entry->terminal);
    EXPECT_TRUE(entry->dbusActivatable);
    EXPECT_TRUE(entry->noDisplay);
    EXPECT_FALSE(entry->tryExecMissing);
    EXPECT_FALSE(entry->hidden);
}

TEST_F(DesktopEntryTest, nameWithoutTranslationStands) {
    const auto entry = read("[Desktop Entry]\nType=Application\nName=Files\nName[fr]=Fichiers\nExec=nemo\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->localisedName, "Files");
}

TEST_F(DesktopEntryTest, shownNameIsBoundedAtACharacter) {
    std::string longName;
    std::string shown;
    for (int count = 0; count < 300; ++count) {
        longName += "ü";
        shown += count < 256 ? "ü" : "";
    }
    const std::string rest = "\nExec=a\n";
    const auto own = read("[Desktop Entry]\nType=Application\nName=" + longName + rest);
    ASSERT_TRUE(own);
    EXPECT_EQ(own->localisedName, shown);
    const auto translated = read("[Desktop Entry]\nType=Application\nName=A\nName[de]=" + longName + rest);
    ASSERT_TRUE(translated);
    EXPECT_EQ(translated->localisedName, shown);
}

TEST_F(DesktopEntryTest, shownNameIsOneLineOfText) {
    const auto entry = read("[Desktop Entry]\nType=Application\n"
                            "Name=a\\nb\\tc\x1b"
                            "d\x7f"
                            "e\u0085f\u2028g\u2029h\\r\nExec=a\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->localisedName, "a b c d e f g h ");
}

TEST_F(DesktopEntryTest, tryExecOfMissingProgramIsNoted) {
    const auto entry = read("[Desktop Entry]\nType=Application\nName=A\nExec=a\nTryExec=surely-not-there\n");
    ASSERT_TRUE(entry);
    EXPECT_TRUE(entry->tryExecMissing);
}

TEST_F(DesktopEntryTest, entriesForOtherDesktopsAreNotDisplayed) {
    const std::string only = "[Desktop Entry]\nType=Application\nName=A\nExec=a\nOnlyShowIn=GNOME;XFCE;\n";
    EXPECT_TRUE(read(only)->noDisplay);
    EXPECT_TRUE(read(only, {"KDE"})->noDisplay);
    EXPECT_FALSE(read(only, {"ubuntu", "GNOME"})->noDisplay);
    const std::string except = "[Desktop Entry]\nType=Application\nName=A\nExec=a\nNotShowIn=KDE;\n";
    EXPECT_TRUE(read(except, {"KDE"})->noDisplay);
    EXPECT_FALSE(read(except)->noDisplay);
}

TEST_F(DesktopEntryTest, hiddenEntryNeedsNothingElse) {
    const auto entry = read("[Desktop Entry]\nHidden=true\n");
    ASSERT_TRUE(entry);
    EXPECT_TRUE(entry->hidden);
}

TEST_F(DesktopEntryTest, whatIsNoApplicationIsRefused) {
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("[Desktop Entry]\nType=Link\nName=A\nURL=https://example.org\n"));
    EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nExec=a\n"));
    EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nName=A\n"));
    EXPECT_FALSE(read("[Other]\nType=Application\nName=A\nExec=a\n"));
    EXPECT_TRUE(read("[Desktop Entry]\nType=Application\nName=A\nDBusActivatable=true\n"));
}

TEST_F(DesktopEntryTest, hostileFilesAreRefused) {
    EXPECT_FALSE(read(std::string("\x7f"
                                  "ELF\0\1\2\xff\xfe",
                                  9)));
    EXPECT_FALSE(read("[Desktop Entry]\nType=Application\nName=\xff\xfe\nExec=a\n"));
    EXPECT_FALSE(read("[Desktop Entry]\nthis is no key\nType=Application\nName=A\nExec=a\n"));
    EXPECT_FALSE(
        read("[Desktop Entry]\nType=Application\nName=A\nExec=a\n" + std::string(2U << 20U, '#') + "\n"));
    const auto pipe = (World::home() / "pipe.desktop").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(readDesktopEntry(pipe, "pipe.desktop", {}));
    EXPECT_FALSE(readDesktopEntry("/dev/zero", "zero.desktop", {}));
    EXPECT_FALSE(readDesktopEntry((World::home() / "missing.desktop").string(), "missing.desktop", {}));
}

TEST_F(DesktopEntryTest, whatComesAfterThousandsOfKeysIsReadToo) {
    std::string text = "[Desktop Entry]\nType=Application\nName=A\n";
    for (int index = 0; index < 20000; ++index) {
        text += "X-Key" + std::to_string(index) + "=value\n";
    }
    const auto entry = read(text + "Exec=last\nStartupWMClass=Last\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "A");
    EXPECT_EQ(entry->program, "last");
    EXPECT_EQ(entry->startupWmClass, "Last");
}

TEST_F(DesktopEntryTest, commandThatIsNotQuotedRightNamesNoProgram) {
    const auto entry = read("[Desktop Entry]\nType=Application\nName=A\nExec=\"never closed\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->program, "");
}

} // namespace

} // namespace quillary::test
