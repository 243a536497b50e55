#include "tests/linux/memory/ApplicationOwnersTest.h"

namespace quillary::test {

namespace {

TEST_F(ApplicationOwnersTest, aWindowsProcessAndItsChildrenBelongToTheApplication) {
    add(10, 1, {"/usr/bin/browser"}, paths["browser"]);
    add(11, 10, {"/usr/bin/helper"});
    add(12, 11, {"/usr/bin/helper"});
    add(20, 1, {"/usr/bin/other"});
    EXPECT_EQ(ownerOf(10), paths["browser"]);
    EXPECT_EQ(ownerOf(12), paths["browser"]);
    EXPECT_EQ(ownerOf(20), "");
    EXPECT_EQ(ownerOf(404), "");
}

TEST_F(ApplicationOwnersTest, sandboxHelpersOfTheSuperuserDoNotBreakTheChain) {
    add(10, 1, {"/usr/lib/browser/browser"}, paths["browser"]);
    others[11] = 10;
    add(12, 11, {"/proc/self/exe"});
    add(13, 12, {});
    EXPECT_EQ(ownerOf(12), paths["browser"]);
    EXPECT_EQ(ownerOf(13), paths["browser"]);
}

TEST_F(ApplicationOwnersTest, crashHandlersAreFoundByTheirFolder) {
    add(10, 1, {"/opt/google/chrome/chrome"}, paths["browser"]);
    add(11, 1, {"/opt/google/chrome/chrome_crashpad_handler"});
    add(12, 1, {"/opt/google/chrome/extra/tool"});
    add(13, 1, {"/opt/google/earth/earth"});
    EXPECT_EQ(ownerOf(11), paths["browser"]);
    EXPECT_EQ(ownerOf(12), paths["browser"]);
    EXPECT_EQ(ownerOf(13), "");
}

TEST_F(ApplicationOwnersTest, crashHandlersOfABrowserStartedInATerminalAreTheBrowsers) {
    const auto group = apps + "/app-gnome-terminal-10.scope";
    add(10, 1, {"/usr/bin/terminal", group}, paths["terminal"]);
    add(11, 10, {"/bin/bash", group});
    add(12, 11, {"/opt/browser/browser", group}, paths["browser"]);
    add(13, 12, {"/opt/browser/browser", group});
    add(14, 1, {"/opt/browser/crashpad", group});
    add(15, 11, {"/usr/bin/make", group});
    add(16, 1, {"/usr/bin/tmux", group});
    EXPECT_EQ(ownerOf(11), paths["terminal"]);
    EXPECT_EQ(ownerOf(12), paths["browser"]);
    EXPECT_EQ(ownerOf(13), paths["browser"]);
    EXPECT_EQ(ownerOf(14), paths["browser"]);
    EXPECT_EQ(ownerOf(15), paths["terminal"]);
    EXPECT_EQ(ownerOf(16), paths["terminal"]);
}

TEST_F(ApplicationOwnersTest, aProgramWithoutWindowsInATerminalIsTheTerminals) {
    add(10, 1, {"/usr/bin/terminal"}, paths["terminal"]);
    add(11, 10, {"/bin/bash"});
    // The same browser runs with windows too.
    add(12, 1, {"/opt/browser/browser"}, paths["browser"]);
    add(13, 11, {"/opt/browser/browser"});
    EXPECT_EQ(ownerOf(13), paths["terminal"]);
}

TEST_F(ApplicationOwnersTest, tabsWithAGroupOfTheirOwnBelongToTheTerminal) {
    const auto tab = apps + "/app-org.gnome.Terminal.slice/vte-spawn-4711.scope";
    add(10, 1, {"/usr/libexec/terminal-server", apps + "/terminal-server.service"}, paths["terminal"]);
    add(11, 10, {"/bin/bash", tab});
    add(12, 11, {"/usr/bin/make", tab});
    EXPECT_EQ(ownerOf(11), paths["terminal"]);
    EXPECT_EQ(ownerOf(12), paths["terminal"]);
}

TEST_F(ApplicationOwnersTest, aUnitNamesTheApplicationOfAllInIt) {
    add(10, 1, {"/usr/bin/maps", apps + "/app-gnome-org.gnome.Maps-77.scope"});
    add(11, 10, {"/usr/bin/helper", apps + "/app-gnome-org.gnome.Maps-77.scope"});
    add(12, 1, {"/usr/bin/maps", apps + "/app-org.gnome.Maps@autostart.service"});
    add(13, 1, {"/usr/bin/maps", apps + "/app-org.gnome.Maps.slice/worker-1.scope"});
    add(14, 1, {"/usr/bin/x", apps + "/app-unknown-1.scope"});
    EXPECT_EQ(ownerOf(10), paths["org.gnome.Maps"]);
    EXPECT_EQ(ownerOf(11), paths["org.gnome.Maps"]);
    EXPECT_EQ(ownerOf(12), paths["org.gnome.Maps"]);
    EXPECT_EQ(ownerOf(13), paths["org.gnome.Maps"]);
    EXPECT_EQ(ownerOf(14), "");
}

TEST_F(ApplicationOwnersTest, aUnitIsAskedBeforeTheLauncherAboveIt) {
    const auto group = apps + "/app-gnome-editor-11.scope";
    add(10, 1, {"/usr/bin/files"}, paths["files"]);
    add(11, 10, {"/usr/bin/editor", group});
    add(12, 11, {"/usr/bin/helper", group});
    EXPECT_EQ(ownerOf(11), paths["editor"]);
    EXPECT_EQ(ownerOf(12), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, theEntryOfTheWindowsCountsWhereTheUnitHasAnother) {
    const auto group = apps + "/app-gnome-com.vendor.Browser-11.scope";
    add(10, 1, {"/usr/bin/browser", group}, paths["browser"]);
    add(11, 1, {"/usr/bin/detached", group});
    EXPECT_EQ(ownerOf(11), paths["browser"]);
}

TEST_F(ApplicationOwnersTest, theLaunchVariableCountsForTheLaunchedAndItsChildren) {
    add(10, 1, {"/usr/bin/files"}, paths["files"]);
    add(11, 10, {"/usr/bin/viewer", session, paths["viewer"]});
    add(12, 11, {"/usr/bin/helper"});
    EXPECT_EQ(ownerOf(11), paths["viewer"]);
    EXPECT_EQ(ownerOf(12), paths["viewer"]);
}

TEST_F(ApplicationOwnersTest, launchedEntriesThatDoNotExistSayNothing) {
    add(10, 1, {"/usr/bin/x", session, "/nowhere/at-all.desktop"});
    add(11, 1, {"/usr/bin/x", session, "relative/viewer.txt"});
    EXPECT_EQ(ownerOf(10), "");
    EXPECT_EQ(ownerOf(11), "");
}

TEST_F(ApplicationOwnersTest, anotherCopyOfTheEntryIsTheSameApplication) {
    writeFile(World::home() / "viewer.desktop", "");
    writeFile(World::home() / "private.desktop", "");
    add(10, 1, {"/usr/bin/x", session, World::home() / "viewer.desktop"});
    add(11, 1, {"/usr/bin/x", session, World::home() / "private.desktop"});
    EXPECT_EQ(ownerOf(10), paths["viewer"]);
    EXPECT_EQ(ownerOf(11), (World::home() / "private.desktop").string());
}

TEST_F(ApplicationOwnersTest, sandboxesNameTheirApplication) {
    const auto flatpak = install("org.mozilla.firefox.desktop", "Name=x\nExec=x");
    const auto snap = install("chat_chat.desktop", "Name=x\nExec=x");
    add(10, 1, {"/app/lib/firefox/firefox", session, "", "org.mozilla.firefox"});
    add(11, 1, {"/app/lib/firefox/firefox", apps + "/app-flatpak-org.mozilla.firefox-99.scope"});
    add(12, 1, {"/snap/chat/1/chat", session, "", "chat"});
    add(13, 1, {"/snap/chat/1/chat", apps + "/snap.chat.chat.01234567-0123-0123-0123-0123456789ab.scope"});
    EXPECT_EQ(ownerOf(10), flatpak);
    EXPECT_EQ(ownerOf(11), flatpak);
    EXPECT_EQ(ownerOf(12), snap);
    EXPECT_EQ(ownerOf(13), snap);
    // An application that shows windows is known by the entry of its windows.
    shown = {{paths["viewer"], "viewer.desktop", "org.mozilla.firefox"}};
    EXPECT_EQ(ownerOf(10), paths["viewer"]);
}

TEST_F(ApplicationOwnersTest, windowsWithinASandboxAreNearerThanTheSandbox) {
    const auto editor = install("ide_ide.desktop", "Name=x\nExec=x");
    const auto group = apps + "/snap.ide.ide-01234567-0123-0123-0123-0123456789ab.scope";
    add(10, 1, {"/snap/ide/1/ide", group, "", "ide"}, editor);
    add(11, 10, {"/bin/bash", group, "", "ide"});
    // A classic snap passes its environment and its group on to what is started in its terminal.
    add(12, 11, {"/usr/lib/browser/browser", group, "", "ide"}, paths["browser"]);
    add(13, 12, {"/usr/lib/browser/browser", group, "", "ide"});
    others[14] = 13;
    add(15, 14, {"/usr/lib/browser/browser", group, "", "ide"});
    add(16, 11, {"/usr/bin/viewer", group, paths["viewer"], "ide"});
    add(17, 16, {"/usr/bin/helper", group, "", "ide"});
    add(18, 1, {"/usr/bin/detached", group, "", "ide"});
    EXPECT_EQ(ownerOf(11), editor);
    EXPECT_EQ(ownerOf(13), paths["browser"]);
    EXPECT_EQ(ownerOf(15), paths["browser"]);
    EXPECT_EQ(ownerOf(17), paths["viewer"]);
    EXPECT_EQ(ownerOf(18), editor);
}

TEST_F(ApplicationOwnersTest, aSandboxIsNearerThanTheWindowsOfItsStarter) {
    const auto chat = install("chat_chat.desktop", "Name=x\nExec=x");
    add(10, 1, {"/usr/bin/terminal"}, paths["terminal"]);
    add(11, 10, {"/snap/chat/1/chat", session, "", "chat"});
    add(12, 11, {"/snap/chat/1/chat", session, "", "chat"});
    add(20, 1, {"/snap/ide/1/ide", session, "", "ide"}, paths["editor"]);
    add(21, 20, {"/snap/chat/1/chat", session, "", "chat"});
    EXPECT_EQ(ownerOf(12), chat);
    EXPECT_EQ(ownerOf(21), chat);
}

TEST_F(ApplicationOwnersTest, theSandboxThatThisProgramInheritedSaysNothingOfWhatItStarted) {
    install("ide_ide.desktop", "Name=x\nExec=x");
    const auto chat = install("chat_chat.desktop", "Name=x\nExec=x");
    const auto group = apps + "/snap.ide.ide-01234567-0123-0123-0123-0123456789ab.scope";
    add(10, 1, {"/snap/ide/1/ide", group, "", "ide"}, paths["editor"]);
    add(ownPid, 10, {"/opt/quillary/bin/quillary", group, "", "ide"});
    add(20, ownPid, {"/usr/bin/tool", group, "", "ide"});
    add(21, ownPid, {"/snap/chat/1/chat", group, "", "chat"});
    EXPECT_EQ(ownerOf(20), "");
    EXPECT_EQ(ownerOf(21), chat);
}

TEST_F(ApplicationOwnersTest, aFolderOfTheHostOwnsNoSandboxedProcess) {
    add(10, 1, {"/opt/editor/editor"}, paths["editor"]);
    add(11, 1, {"/opt/editor/tool", session, "", "org.unknown"});
    add(12, 1, {"/opt/editor/tool", apps + "/run-1.scope", "", "org.unknown"});
    add(13, 1, {"/opt/editor/tool"});
    EXPECT_EQ(ownerOf(11), "");
    EXPECT_EQ(ownerOf(12), "");
    EXPECT_EQ(ownerOf(13), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, twoSandboxesWithTheSameFoldersInsideAreNotMistaken) {
    install("org.a.desktop", "Name=x\nExec=x");
    add(10, 1, {"/app/share/electron/run", session, "", "org.a"});
    add(11, 1, {"/app/share/electron/run", session, "", "org.unknown"});
    add(12, 1, {"/app/share/electron/run"});
    EXPECT_EQ(ownerOf(11), "");
    EXPECT_EQ(ownerOf(12), "");
}

TEST_F(ApplicationOwnersTest, aFolderThatTwoApplicationsRunFromSaysNothing) {
    add(10, 1, {"/usr/lib/runtime/run"}, paths["editor"]);
    add(11, 1, {"/usr/lib/runtime/run"}, paths["viewer"]);
    add(12, 1, {"/usr/lib/runtime/run"});
    EXPECT_EQ(ownerOf(12), "");
    // In a group with one of them it is that one's.
    add(13, 1, {"/usr/lib/runtime/run", "/group"}, paths["viewer"]);
    add(14, 1, {"/usr/lib/runtime/run", "/group"});
    EXPECT_EQ(ownerOf(14), paths["viewer"]);
}

TEST_F(ApplicationOwnersTest, anApplicationOfASharedRuntimeWithAUnitOfItsOwnIsNotTheOther) {
    add(10, 1, {"/usr/lib/runtime/run", apps + "/app-gnome-editor-10.scope"}, paths["editor"]);
    add(11, 1, {"/usr/lib/runtime/run", apps + "/app-gnome-viewer-11.scope"});
    EXPECT_EQ(ownerOf(11), paths["viewer"]);
}

TEST_F(ApplicationOwnersTest, helpersStartedBeforeTheApplicationWasMovedToItsGroupStayWithIt) {
    add(10, 1, {"/usr/bin/browser", apps + "/app-quillary-browser-10.scope"}, paths["browser"]);
    add(11, 10, {"/usr/bin/helper", session});
    add(12, 1, {"/opt/editor/editor", apps + "/app-quillary-editor-12.scope"}, paths["editor"]);
    add(13, 1, {"/opt/editor/crashpad", session});
    EXPECT_EQ(ownerOf(11), paths["browser"]);
    EXPECT_EQ(ownerOf(13), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, whatThisProgramStartedIsNeitherItsOwnNorItsStarters) {
    const auto group = apps + "/app-gnome-terminal-10.scope";
    add(10, 1, {"/usr/bin/terminal", group}, paths["terminal"]);
    add(11, 10, {"/bin/bash", group});
    add(ownPid, 11, {"/opt/quillary/bin/quillary", group, paths["quillary"]});
    add(20, ownPid, {"/usr/bin/viewer", group});
    add(21, ownPid, {"/usr/bin/viewer", group, paths["viewer"]});
    add(22, ownPid, {"/usr/bin/editor", apps + "/app-quillary-editor-22.scope"});
    add(23, 1, {"/usr/bin/detached", group});
    add(24, ownPid, {"/opt/quillary/helper", group});
    EXPECT_EQ(ownerOf(ownPid), "");
    EXPECT_EQ(ownerOf(11), paths["terminal"]);
    EXPECT_EQ(ownerOf(20), "");
    EXPECT_EQ(ownerOf(21), paths["viewer"]);
    EXPECT_EQ(ownerOf(22), paths["editor"]);
    EXPECT_EQ(ownerOf(23), "");
    EXPECT_EQ(ownerOf(24), "");
}

TEST_F(ApplicationOwnersTest, parentsThatGoInCirclesEnd) {
    add(10, 11, {});
    add(11, 10, {});
    add(12, 12, {});
    others[13] = 13;
    add(14, 13, {});
    for (const std::int32_t pid : {10, 11, 12, 14}) {
        EXPECT_EQ(ownerOf(pid), "") << pid;
    }
}

TEST_F(ApplicationOwnersTest, oddUnitAndEntryNamesSayNothing) {
    add(10, 1, {"/x/y/z", apps + "/app-" + std::string(5000, 'x') + "-1.scope"});
    add(11, 1, {"/x/y/z", apps + "/app-..\\x2f..\\x2fetc\\x2fpasswd-1.scope"});
    add(12, 1, {"/x/y/z", apps + "/app-a\\x00b-1.scope"});
    add(13, 1, {"/x/y/z", "////"});
    add(14, 1, {"/x/y/z", session, "/" + std::string(70000, 'x') + ".desktop"});
    for (const std::int32_t pid : {10, 11, 12, 13, 14}) {
        EXPECT_EQ(ownerOf(pid), "") << pid;
    }
}

} // namespace

} // namespace quillary::test
