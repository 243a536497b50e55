#include "tests/linux/LinuxWorkspaceFixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

using Ids = std::vector<std::uint64_t>;

WindowInfo window(std::uint64_t id, const std::string& windowClass, std::uint64_t transientFor = 0) {
    WindowInfo info;
    info.id = id;
    info.windowClass = windowClass;
    info.transientFor = transientFor;
    return info;
}

TEST_F(LinuxWorkspaceTest, applicationWithManyWindowsRunsOnce) {
    source.list = {window(1, "Gimp"), window(2, "Files"), window(3, "Gimp")};
    const auto list = workspace->runningApplications();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].bundlePath, gimp);
    EXPECT_EQ(list[0].bundleIdentifier, "gimp.desktop");
    EXPECT_EQ(list[0].policy, ActivationPolicy::regular);
    EXPECT_EQ(list[1].bundlePath, files);
    EXPECT_NE(list[0].handle, list[1].handle);
    EXPECT_EQ(workspace->runningApplications(), list);
}

TEST_F(LinuxWorkspaceTest, orderIsThatInWhichApplicationsStarted) {
    source.list = {window(1, "Files"), window(2, "Gimp"), window(3, "Files")};
    EXPECT_EQ(paths(), (Strings{files, gimp}));
    source.list = {window(2, "Gimp"), window(3, "Files")};
    EXPECT_EQ(paths(), (Strings{files, gimp})) << "one window of several was closed";
    source.active = 2;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(paths(), (Strings{files, gimp})) << "the focus moved";
    source.list = {window(3, "Files"), window(2, "Gimp")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(paths(), (Strings{files, gimp})) << "the window manager lists them otherwise";
}

TEST_F(LinuxWorkspaceTest, anApplicationThatStartsAgainIsTheLast) {
    source.list = {window(1, "Files"), window(2, "Gimp")};
    EXPECT_EQ(paths(), (Strings{files, gimp}));
    source.list = {window(2, "Gimp")};
    EXPECT_EQ(paths(), (Strings{gimp}));
    source.list = {window(3, "Files"), window(2, "Gimp")};
    EXPECT_EQ(paths(), (Strings{gimp, files}));
}

TEST_F(LinuxWorkspaceTest, windowsWithoutAnEntryAreLeftOut) {
    source.list = {window(1, "Nobody-knows"), window(2, "Gimp")};
    EXPECT_EQ(paths(), (Strings{gimp}));
}

TEST_F(LinuxWorkspaceTest, windowsThatAreNotNormalMakeNoApplication) {
    source.list = {window(1, "Gimp")};
    source.list[0].normal = false;
    EXPECT_EQ(paths(), (Strings{}));
}

TEST_F(LinuxWorkspaceTest, handleIsNotUsedAgainAfterTheApplicationEnded) {
    source.list = {window(1, "Gimp")};
    const auto first = workspace->runningApplications().at(0).handle;
    source.list = {};
    EXPECT_TRUE(workspace->runningApplications().empty());
    source.list = {window(1, "Gimp")};
    EXPECT_NE(workspace->runningApplications().at(0).handle, first);
}

TEST_F(LinuxWorkspaceTest, dialogBelongsToItsParentsApplication) {
    source.list = {window(1, "Files"), window(2, "Gimp", 1), window(3, "", 2), window(4, "", 99)};
    EXPECT_EQ(paths(), (Strings{files}));
    source.active = 3;
    EXPECT_EQ(workspace->frontmostApplication()->bundlePath, files);
}

TEST_F(LinuxWorkspaceTest, windowsThatAreEachOthersParentsEnd) {
    source.list = {window(1, "Gimp", 2), window(2, "", 1), window(3, "Files", 3)};
    EXPECT_EQ(paths(), (Strings{gimp, files}));
}

TEST_F(LinuxWorkspaceTest, frontmostIsTheActiveWindowsApplication) {
    source.list = {window(1, "Gimp"), window(2, "Unknown")};
    EXPECT_FALSE(workspace->frontmostApplication());
    source.active = 1;
    EXPECT_EQ(workspace->frontmostApplication()->bundlePath, gimp);
    source.active = 2;
    EXPECT_FALSE(workspace->frontmostApplication());
}

TEST_F(LinuxWorkspaceTest, frontmostIsThisProgramWhileOneOfItsWindowsIsActive) {
    source.list = {window(1, "Gimp")};
    source.active = 1;
    Q_EMIT source.windowsChanged();
    take();
    source.active.reset();
    source.ownActive = true;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{"activated"}));
    const auto front = workspace->frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->bundlePath, std::nullopt) << "its entry is not installed";
    EXPECT_EQ(front->bundleIdentifier, workspace->ownBundleIdentifier());
    EXPECT_EQ(paths(), (Strings{gimp}));
    source.ownActive = false;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{"activated"}));
    EXPECT_FALSE(workspace->frontmostApplication());
}

TEST_F(LinuxWorkspaceTest, thisProgramsPathIsItsInstalledEntry) {
    const auto own = install("quillary.desktop", "Name=Quillary\nExec=quillary");
    source.ownActive = true;
    const auto front = workspace->frontmostApplication();
    ASSERT_TRUE(front);
    EXPECT_EQ(front->bundlePath, own);
}

TEST_F(LinuxWorkspaceTest, processesAreNamedWithTheApplicationsWhoseWindowsTheyShow) {
    const auto packed = install("org.test.Packed.desktop", "Name=P\nExec=packed\nX-Flatpak=org.test.Packed");
    source.list = {window(1, "Packed"), window(2, "Gimp"), window(3, "", 2), window(4, "Nobody-knows"),
                   window(5, "Gimp")};
    source.list[0].pid = 30;
    source.list[1].pid = 20;
    source.list[2].pid = 21;
    source.list[3].pid = 40;
    const auto now = workspace->desktopNow();
    ASSERT_EQ(now.entries.size(), 2U);
    EXPECT_EQ(now.entries[0].path, gimp);
    EXPECT_EQ(now.entries[0].id, "gimp.desktop");
    EXPECT_EQ(now.entries[0].sandbox, "");
    EXPECT_EQ(now.entries[1].path, packed);
    EXPECT_EQ(now.entries[1].id, "org.test.Packed.desktop");
    EXPECT_EQ(now.entries[1].sandbox, "org.test.Packed");
    ASSERT_EQ(now.windows.size(), 3U);
    EXPECT_EQ(now.windows[0].pid, 30);
    EXPECT_EQ(now.windows[0].path, packed);
    EXPECT_EQ(now.windows[1].pid, 20);
    EXPECT_EQ(now.windows[1].path, gimp);
    EXPECT_EQ(now.windows[2].pid, 21);
    EXPECT_EQ(now.windows[2].path, gimp);
}

TEST_F(LinuxWorkspaceTest, ownIdentifierIsTheInstalledEntrys) {
    EXPECT_EQ(workspace->ownBundleIdentifier(), "quillary.desktop");
}

TEST_F(LinuxWorkspaceTest, launchAndEndAreToldOnceAnApplication) {
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{}));
    source.list = {window(1, "Gimp")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{"launched"}));
    source.list = {window(1, "Gimp"), window(2, "Gimp"), window(3, "Unknown")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{}));
    source.list = {window(2, "Gimp"), window(3, "Unknown")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{}));
    source.list = {window(4, "Files")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{"launched", "terminated"}));
    source.list = {};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{"terminated"}));
}

TEST_F(LinuxWorkspaceTest, whatWasReadAtTheStartIsNotTold) {
    source.list = {window(1, "Gimp")};
    source.active = 1;
    EXPECT_EQ(paths(), (Strings{gimp}));
    Q_EMIT source.windowsChanged();
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{}));
}

TEST_F(LinuxWorkspaceTest, whatIsReadBeforeItsSignalIsStillTold) {
    EXPECT_EQ(paths(), (Strings{}));
    source.list = {window(1, "Gimp")};
    EXPECT_EQ(paths(), (Strings{gimp}));
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(take(), (Strings{"launched"}));
}

TEST_F(LinuxWorkspaceTest, activationIsToldWhenTheApplicationChanges) {
    source.list = {window(1, "Gimp"), window(2, "Gimp"), window(3, "Files")};
    Q_EMIT source.windowsChanged();
    take();
    source.active = 1;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{"activated"}));
    source.active = 2;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{}));
    source.active = 3;
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{"activated"}));
    source.active.reset();
    Q_EMIT source.activeWindowChanged();
    EXPECT_EQ(take(), (Strings{"activated"}));
}

TEST_F(LinuxWorkspaceTest, windowThatChangesItsClassIsMatchedAgain) {
    source.list = {window(1, "Unknown")};
    EXPECT_EQ(paths(), (Strings{}));
    source.list = {window(1, "Gimp")};
    Q_EMIT source.windowsChanged();
    EXPECT_EQ(paths(), (Strings{gimp}));
    EXPECT_EQ(take(), (Strings{"launched"}));
}

TEST_F(LinuxWorkspaceTest, entryThatIsInstalledLaterIsMatched) {
    source.list = {window(1, "Later")};
    EXPECT_EQ(paths(), (Strings{}));
    const auto later = install("later.desktop", "Name=Later\nExec=later");
    QElapsedTimer time;
    time.start();
    while (scheduler.pending() == 0 && time.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    scheduler.advance(0.5);
    EXPECT_EQ(paths(), (Strings{later}));
    EXPECT_EQ(take(), (Strings{"launched"}));
}

TEST_F(LinuxWorkspaceTest, runningApplicationComesToTheFrontByItsTopmostWindow) {
    source.list = {window(1, "Gimp"), window(2, "Gimp"), window(3, "Files"), window(4, "", 1)};
    source.stack = {2, 4, 1, 3};
    workspace->openApplication(gimp);
    EXPECT_EQ(source.activated, (Ids{1}));
    source.stack = {2, 1, 4, 3};
    workspace->openApplication(gimp);
    EXPECT_EQ(source.activated, (Ids{1, 4}));
    EXPECT_FALSE(scheduler.finishWork());
}

TEST_F(LinuxWorkspaceTest, desktopsAndPanelsOfAnApplicationAreNotActivatedButItsDialogsAre) {
    source.list = {window(1, "Gimp"), window(2, "Gimp"), window(3, "", 1)};
    source.list[1].normal = false;
    source.list[2].normal = false;
    source.stack = {1, 2};
    workspace->openApplication(gimp);
    EXPECT_EQ(source.activated, (Ids{1}));
    source.stack = {1, 3, 2};
    workspace->openApplication(gimp);
    EXPECT_EQ(source.activated, (Ids{1, 3}));
}

TEST_F(LinuxWorkspaceTest, notDisplayedEntryMatchesItsWindowsAndADeletedOneDoesNot) {
    const auto shy = install("shy.desktop", "Name=Shy\nExec=shy\nNoDisplay=true");
    install("deleted.desktop", "Name=Deleted\nExec=deleted\nHidden=true");
    source.list = {window(1, "Shy"), window(2, "Deleted")};
    EXPECT_EQ(paths(), (Strings{shy}));
}

TEST_F(LinuxWorkspaceTest, runningApplicationThatIsNotInTheStackIsStillActivated) {
    source.list = {window(1, "Gimp"), window(2, "Gimp")};
    workspace->openApplication(gimp);
    EXPECT_EQ(source.activated, (Ids{2}));
}

TEST_F(LinuxWorkspaceTest, quittingClosesAllWindowsFromTheTop) {
    source.list = {window(1, "Gimp"), window(2, "Files"), window(3, "Gimp"), window(4, "", 3)};
    source.stack = {3, 1, 2, 4};
    workspace->terminate(workspace->runningApplications().at(0));
    EXPECT_EQ(source.closed, (Ids{4, 1, 3}));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(LinuxWorkspaceTest, quittingClosesUtilitiesAndDialogsButNoOtherApplicationsWindow) {
    source.list = {window(1, "Gimp"), window(2, "Gimp"), window(3, "Files"),
                   window(4, "", 3),  window(5, "", 1),  window(6, "Nobody-knows")};
    source.list[1].normal = false;
    source.list[4].normal = false;
    source.stack = {6, 5, 4, 3, 2, 1};
    workspace->terminate(workspace->runningApplications().at(0));
    EXPECT_EQ(source.closed, (Ids{1, 2, 5}));
}

TEST_F(LinuxWorkspaceTest, quittingWhatHasEndedClosesNothing) {
    source.list = {window(1, "Gimp")};
    const auto application = workspace->runningApplications().at(0);
    source.list = {};
    workspace->terminate(application);
    EXPECT_EQ(source.closed, (Ids{}));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: "));
}

TEST_F(LinuxWorkspaceTest, failedLaunchIsOneLineOfTheLog) {
    workspace->openApplication("/gone/missing.desktop");
    while (scheduler.finishWork()) {
    }
    EXPECT_EQ(log.lines, Strings{"Quillary: could not launch /gone/missing.desktop: it does not exist"});
}

} // namespace

} // namespace quillary::test
