#include "platform/linux/entries/DesktopEntries.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/World.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include <sys/stat.h>

namespace quillary::test {

namespace {

using Key = EntryIndex::Key;

constexpr const char* plain = "[Desktop Entry]\nType=Application\nName=Plain\nExec=plain\n";

class DesktopEntriesTest : public WorldTest {
protected:
    static EntryIndex index() { return EntryIndex(readInstalledEntries(applicationFolders()).entries); }

    static void runLoopUntil(const std::function<bool()>& done) {
        QElapsedTimer time;
        time.start();
        while (!done() && time.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }
};

TEST_F(DesktopEntriesTest, userFolderComesBeforeSystemFolders) {
    EXPECT_EQ(applicationFolders(),
              (std::vector<std::filesystem::path>{World::userData() / "applications",
                                                  World::systemData() / "applications"}));
}

TEST_F(DesktopEntriesTest, idsOfSubfoldersAreJoinedByDashes) {
    install("kde4/deep/foo.desktop", "Name=Foo\nExec=foo");
    const auto found = index();
    const auto* entry = found.find(Key::id, "kde4-deep-foo.desktop");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->id, "kde4-deep-foo.desktop");
    EXPECT_EQ(entry->path, (World::systemData() / "applications/kde4/deep/foo.desktop").string());
}

TEST_F(DesktopEntriesTest, userEntryStandsBeforeTheSystems) {
    install("a.desktop", "Name=System\nExec=a");
    writeFile(World::userData() / "applications/a.desktop",
              "[Desktop Entry]\nType=Application\nName=User\nExec=a\n");
    const auto found = index();
    ASSERT_EQ(found.entries().size(), 1U);
    EXPECT_EQ(found.entries().front().name, "User");
}

TEST_F(DesktopEntriesTest, hiddenUserEntryDeletesTheSystems) {
    install("a.desktop", "Name=System\nExec=a");
    writeFile(World::userData() / "applications/a.desktop", "[Desktop Entry]\nHidden=true\n");
    EXPECT_TRUE(index().entries().empty());
}

TEST_F(DesktopEntriesTest, invalidUserEntryHidesNothing) {
    install("a.desktop", "Name=System\nExec=a");
    writeFile(World::userData() / "applications/a.desktop", "garbage");
    ASSERT_EQ(index().entries().size(), 1U);
    EXPECT_EQ(index().entries().front().name, "System");
}

TEST_F(DesktopEntriesTest, entriesNotForMenusAreListed) {
    install("a.desktop", "Name=A\nExec=a\nNoDisplay=true");
    EXPECT_EQ(index().entries().size(), 1U);
}

TEST_F(DesktopEntriesTest, linksInCirclesEnd) {
    const auto folder = World::systemData() / "applications";
    install("a.desktop", "Name=A\nExec=a");
    std::filesystem::create_directory_symlink(folder, folder / "loop");
    std::filesystem::create_symlink(folder / "self.desktop", folder / "self.desktop");
    const auto found = index();
    ASSERT_EQ(found.entries().size(), 1U);
    EXPECT_EQ(found.entries().front().id, "a.desktop");
}

TEST_F(DesktopEntriesTest, foldersTooDeepAreLeftOut) {
    std::string folder;
    for (int level = 0; level < 12; ++level) {
        folder += "d/";
        install(folder + "e.desktop", "Name=E\nExec=e");
    }
    EXPECT_EQ(index().entries().size(), 8U);
}

TEST_F(DesktopEntriesTest, newEntryIsFoundOnceTheFolderHasSettled) {
    install("a.desktop", "Name=A\nExec=a");
    ManualScheduler scheduler;
    const DesktopEntries entries(scheduler);
    int changes = 0;
    QObject::connect(&entries, &DesktopEntries::changed, &entries, [&changes] { ++changes; });
    EXPECT_EQ(entries.index().entries().size(), 1U);
    install("b.desktop", "Name=B\nExec=b");
    runLoopUntil([&scheduler] { return scheduler.pending() > 0; });
    EXPECT_EQ(changes, 0);
    scheduler.advance(0.5);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(entries.index().entries().size(), 2U);
}

TEST_F(DesktopEntriesTest, folderThatAppearsLaterIsRead) {
    ManualScheduler scheduler;
    const DesktopEntries entries(scheduler);
    EXPECT_TRUE(entries.index().entries().empty());
    writeFile(World::userData() / "applications/a.desktop", plain);
    runLoopUntil([&scheduler] { return scheduler.pending() > 0; });
    scheduler.advance(0.5);
    EXPECT_EQ(entries.index().entries().size(), 1U);
}

TEST_F(DesktopEntriesTest, otherChangesBesideAMissingFolderAreNoReason) {
    ManualScheduler scheduler;
    const DesktopEntries entries(scheduler);
    EXPECT_TRUE(entries.index().entries().empty());
    writeFile(World::userData() / "noise", "something");
    QElapsedTimer time;
    time.start();
    runLoopUntil([&] { return scheduler.pending() > 0 || time.elapsed() > 500; });
    EXPECT_EQ(scheduler.pending(), 0U);
    writeFile(World::userData() / "applications/a.desktop", plain);
    runLoopUntil([&scheduler] { return scheduler.pending() > 0; });
    EXPECT_EQ(scheduler.pending(), 1U);
}

TEST_F(DesktopEntriesTest, folderThatAppearsStepByStepIsRead) {
    std::filesystem::remove(World::userData());
    ManualScheduler scheduler;
    const DesktopEntries entries(scheduler);
    EXPECT_TRUE(entries.index().entries().empty());
    std::filesystem::create_directory(World::userData());
    QElapsedTimer time;
    time.start();
    runLoopUntil([&] { return scheduler.pending() > 0 || time.elapsed() > 500; });
    EXPECT_EQ(scheduler.pending(), 0U);
    writeFile(World::userData() / "applications/a.desktop", plain);
    runLoopUntil([&scheduler] { return scheduler.pending() > 0; });
    scheduler.advance(0.5);
    EXPECT_EQ(entries.index().entries().size(), 1U);
}

// Whether this process watches the folder by inotify(7). The kernel names watched inodes.
bool isWatched(const std::filesystem::path& folder) {
    struct stat status = {};
    if (::stat(folder.c_str(), &status) != 0) {
        return false;
    }
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream lines(file.path());
        for (std::string line; std::getline(lines, line);) {
            const auto inode = line.find(" ino:");
            if (line.starts_with("inotify ") && inode != std::string::npos &&
                std::stoull(line.substr(inode + 5), nullptr, 16) == status.st_ino) {
                return true;
            }
        }
    }
    return false;
}

TEST_F(DesktopEntriesTest, theKernelsListOfWatchesNeverHasTheHomeFolder) {
    const auto data = World::home() / ".local/share";
    // As more of the path exists, the watch moves closer to the missing folder.
    for (const std::filesystem::path& existing :
         {World::home(), World::home() / ".local", data, data / "applications"}) {
        SCOPED_TRACE(existing);
        std::filesystem::create_directories(existing);
        ::setenv("XDG_DATA_HOME", data.c_str(), 1);
        ManualScheduler scheduler;
        const DesktopEntries entries(scheduler);
        ::setenv("XDG_DATA_HOME", World::userData().c_str(), 1);
        EXPECT_TRUE(entries.index().entries().empty());
        EXPECT_FALSE(isWatched(World::home()));
        EXPECT_TRUE(isWatched(World::systemData() / "applications"));
        EXPECT_EQ(isWatched(existing), existing != World::home());
    }
}

TEST_F(DesktopEntriesTest, watchesAtMostTwoFoldersUpAndNeverTheHomeFolder) {
    const auto home = World::home();
    EXPECT_EQ(ancestorToWatch(home / ".local/share/applications"), "");
    std::filesystem::create_directory(home / ".local");
    EXPECT_EQ(ancestorToWatch(home / ".local/share/applications"), home / ".local");
    std::filesystem::create_directory(home / ".local/share");
    EXPECT_EQ(ancestorToWatch(home / ".local/share/applications"), home / ".local/share");
    EXPECT_EQ(ancestorToWatch(home / "data/applications"), "");
    EXPECT_EQ(ancestorToWatch(home / "applications"), "");
    EXPECT_EQ(ancestorToWatch("/no-such-folder/applications"), "");
    EXPECT_EQ(ancestorToWatch("/applications"), "");
    EXPECT_EQ(ancestorToWatch(home / ".local/a/b/c/applications"), "");
}

} // namespace

} // namespace quillary::test
