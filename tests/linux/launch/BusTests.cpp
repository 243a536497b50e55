#include "platform/linux/launch/Launcher.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/BusServices.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

class BusTest : public WorldTest {
protected:
    void finish() {
        while (scheduler.finishWork()) {
        }
    }

    BusServices services;
    ManualScheduler scheduler;
    LinesLog log;
    Launcher launcher{scheduler, log};
};

TEST_F(BusTest, fileManagerShowsTheItem) {
    services.own("org.freedesktop.FileManager1");
    const auto folder = World::home().string();
    writeFile(World::home() / "a b#1%ä", "");
    launcher.reveal(folder + "/a b#1%ä");
    launcher.reveal(folder + "/");
    launcher.reveal("/nowhere/at/all");
    finish();
    const auto calls = services.calls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].starts_with("ShowItems(['file://" + folder + "/a%20b%231%25%C3%A4'], 'quillary-"))
        << calls[0];
    EXPECT_TRUE(calls[1].starts_with("ShowItems(['file://" + folder + "'], 'quillary-")) << calls[1];
    EXPECT_EQ(log.lines, Strings{"Quillary: could not reveal /nowhere/at/all: it does not exist"});
}

TEST_F(BusTest, fileManagerThatRefusesIsReplacedByTheFolder) {
    services.own("org.freedesktop.FileManager1");
    services.refuses = true;
    const auto output = World::home() / "output";
    writeScript(World::programs() / "files", "echo \"$1\" > " + output.string());
    install("files.desktop", "Name=Files\nExec=files %f\nMimeType=inode/directory;");
    associate({{"inode/directory", "files.desktop"}});
    writeFile(World::home() / "x", "");
    launcher.reveal((World::home() / "x").string());
    finish();
    EXPECT_EQ(waitForLine(output), World::home().string() + "\n");
}

TEST_F(BusTest, applicationThatStartsByBusIsActivated) {
    services.own("org.test.Viewer");
    const auto entry = install("org.test.Viewer.desktop",
                               "Name=Viewer\nExec=surely-not-run\nDBusActivatable=true\nStartupNotify=true");
    writeScript(World::programs() / "surely-not-run", "touch " + (World::home() / "ran").string());
    launcher.launch(entry);
    launcher.launch(entry, {"/tmp/a"});
    finish();
    const auto calls = services.calls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].starts_with("Activate(")) << calls[0];
    EXPECT_TRUE(calls[1].starts_with("Open(['file:///tmp/a']")) << calls[1];
    // The time of the user's action, with which its window may take the focus.
    EXPECT_NE(calls[0].find("'desktop-startup-id': <'quillary-"), std::string::npos) << calls[0];
    EXPECT_NE(calls[1].find("_TIME"), std::string::npos) << calls[1];
    EXPECT_FALSE(std::filesystem::exists(World::home() / "ran"));
    EXPECT_EQ(log.lines, Strings());
}

TEST_F(BusTest, applicationThatDoesNotAskForAnIdGetsNone) {
    services.own("org.test.Plain");
    launcher.launch(install("org.test.Plain.desktop", "Name=Plain\nExec=true\nDBusActivatable=true"));
    finish();
    EXPECT_EQ(services.calls(), Strings{"Activate({},)"});
}

TEST_F(BusTest, failedActivationIsOneLineOfTheLog) {
    const auto entry = install("org.test.Nobody.desktop", "Name=Nobody\nExec=true\nDBusActivatable=true");
    launcher.launch(entry);
    finish();
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not launch " + entry + ": ")) << log.lines[0];
}

TEST_F(BusTest, childGetsAScopeOfItsOwn) {
    services.own("org.freedesktop.systemd1");
    const auto output = World::home() / "output";
    writeScript(World::programs() / "report", "echo $$ > " + output.string());
    const auto entry = install("kde4-report.desktop", "Name=Report\nExec=report");
    launcher.launch(entry);
    finish();
    auto pid = waitForLine(output);
    pid.pop_back();
    const auto calls = services.calls();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0], "StartTransientUnit('app-quillary-kde4\\\\x2dreport-" + pid +
                            ".scope', 'fail', [('PIDs', <[uint32 " + pid +
                            "]>), ('Description', <'kde4-report'>), ('Slice', <'app.slice'>), "
                            "('CollectMode', <'inactive-or-failed'>)], [])");
    EXPECT_EQ(log.lines, Strings());
}

TEST_F(BusTest, sessionWithoutAServiceManagerIsSilent) {
    const auto output = World::home() / "output";
    writeScript(World::programs() / "report", "echo ran > " + output.string());
    launcher.launch(install("report.desktop", "Name=Report\nExec=report"));
    finish();
    EXPECT_EQ(waitForLine(output), "ran\n");
    EXPECT_EQ(log.lines, Strings());
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::testing::InitGoogleTest(&argc, argv);
    static auto* daemon = g_test_dbus_new(G_TEST_DBUS_NONE);
    g_test_dbus_up(daemon);
    const int result = RUN_ALL_TESTS();
    // Our own connection to the bus lives as long as the program; g_test_dbus_down and the last unref would
    // both wait 30 s for it to close.
    g_test_dbus_stop(daemon);
    quillary::test::World::leave();
    return result;
}
