#include "tests/linux/memory/ApplicationOwnersTest.h"

#include <utility>

namespace quillary::test {

namespace {

TEST_F(ApplicationOwnersTest, aFolderOwnsNoProcessOfAnotherContainer) {
    const auto inside = "/user.slice/user-1000.slice/user@1000.service/user.slice/";
    add(10, 1, {"/usr/lib/chromium/chromium"}, paths["browser"]);
    int pid = 11;
    for (const auto& group :
         {inside + std::string("libpod-0123.scope/container"), inside + std::string("docker-0123.scope"),
          std::string("/machine.slice/machine-build.scope/payload"),
          std::string("/machine.slice/libpod-0123.scope/app.scope"), std::string("/docker/0123"),
          std::string("/libpod_parent/libpod-0123"), std::string("/lxc.payload.build/x")}) {
        add(pid, 1, {"/usr/lib/chromium/chromium", group});
        EXPECT_EQ(ownerOf(pid++), "") << group;
    }
    add(pid, 1, {"/usr/lib/chromium/crashpad"});
    EXPECT_EQ(ownerOf(pid), paths["browser"]);
}

TEST_F(ApplicationOwnersTest, aFolderInAContainerOwnsWhatRunsInTheSameContainer) {
    const std::string container = "/user.slice/libpod-0123.scope";
    add(10, 1, {"/usr/lib/chromium/chromium", container + "/container"}, paths["browser"]);
    add(11, 1, {"/usr/lib/chromium/crashpad", container + "/other"});
    add(12, 1, {"/usr/lib/chromium/crashpad", "/user.slice/libpod-4567.scope/other"});
    add(13, 1, {"/usr/lib/chromium/crashpad"});
    add(14, 1, {"/usr/lib/chromium/crashpad", "/user.slice"});
    EXPECT_EQ(ownerOf(11), paths["browser"]);
    EXPECT_EQ(ownerOf(12), "");
    EXPECT_EQ(ownerOf(13), "");
    EXPECT_EQ(ownerOf(14), "");
}

TEST_F(ApplicationOwnersTest, aFolderOwnsNoProcessOfAnotherService) {
    add(10, 1, {"/usr/lib/chromium/chromium", apps + "/app-gnome-browser-10.scope"}, paths["browser"]);
    add(11, 1, {"/usr/lib/chromium/chromium", apps + "/render-farm.service"});
    add(12, 1, {"/usr/lib/chromium/chromium", apps + "/render-farm.service/worker"});
    add(13, 1, {"/usr/lib/chromium/chromium", "/system.slice/runner.service"});
    // Below the user's manager, but in no service there.
    add(14, 1, {"/usr/lib/chromium/chromium", apps + "/run-r1.scope"});
    EXPECT_EQ(ownerOf(11), "");
    EXPECT_EQ(ownerOf(12), "");
    EXPECT_EQ(ownerOf(13), "");
    EXPECT_EQ(ownerOf(14), paths["browser"]);
}

TEST_F(ApplicationOwnersTest, aFolderOwnsWhatRunsInTheApplicationsService) {
    add(10, 1, {"/opt/mail/mail", apps + "/mail.service/main"}, paths["viewer"]);
    add(11, 1, {"/opt/mail/crashpad", apps + "/mail.service/helper"});
    add(12, 1, {"/opt/mail/crashpad", session});
    EXPECT_EQ(ownerOf(11), paths["viewer"]);
    EXPECT_EQ(ownerOf(12), paths["viewer"]);
}

TEST_F(ApplicationOwnersTest, aFolderOwnsNoProcessOfAnotherSession) {
    const std::string other = "/user.slice/user-1000.slice/session-7.scope";
    add(10, 1, {"/opt/editor/editor"}, paths["editor"]);
    add(11, 1, {"/opt/editor/editor", other});
    add(12, 1, {"/opt/editor/crashpad", apps + "/run-r1.scope"});
    EXPECT_EQ(ownerOf(11), "");
    EXPECT_EQ(ownerOf(12), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, theSessionOfAnApplicationInAScopeIsThatOfThisProgram) {
    const std::string other = "/user.slice/user-1000.slice/session-7.scope";
    add(ownPid, 1, {"/usr/bin/quillary"});
    add(10, 1, {"/opt/editor/editor", apps + "/app-quillary-editor-10.scope"}, paths["editor"]);
    add(11, 1, {"/opt/editor/crashpad", other});
    add(12, 1, {"/opt/editor/crashpad", session});
    EXPECT_EQ(ownerOf(11), "");
    EXPECT_EQ(ownerOf(12), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, sessionsAreOthersWhereTheDesktopRunsBelowTheUsersManager) {
    add(ownPid, 1, {"/usr/bin/quillary", apps + "/app-gnome-quillary-900.scope"});
    add(10, 1, {"/opt/editor/editor", apps + "/app-gnome-editor-10.scope"}, paths["editor"]);
    add(11, 1, {"/opt/editor/editor", session});
    EXPECT_EQ(ownerOf(11), "");
}

TEST_F(ApplicationOwnersTest, whatStayedInThisProgramsServiceIsFoundByItsFolder) {
    const auto own = apps + "/app-quillary@autostart.service";
    add(ownPid, 1, {"/usr/bin/quillary", own});
    add(10, 1, {"/opt/editor/editor", apps + "/app-quillary-editor-10.scope"}, paths["editor"]);
    add(11, 1, {"/opt/editor/crashpad", own});
    EXPECT_EQ(ownerOf(11), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, oneOfTheApplicationsProcessesInTheSameContainerIsEnough) {
    const std::string container = "/user.slice/libpod-0123.scope/container";
    add(10, 1, {"/opt/editor/editor"}, paths["editor"]);
    add(11, 1, {"/opt/editor/editor", container}, paths["editor"]);
    add(12, 1, {"/opt/editor/crashpad", container + "/x"});
    add(13, 1, {"/opt/editor/crashpad", "/user.slice"});
    EXPECT_EQ(ownerOf(12), paths["editor"]);
    EXPECT_EQ(ownerOf(13), paths["editor"]);
}

TEST_F(ApplicationOwnersTest, aFolderOwnsNoProcessOfAnotherNamespace) {
    add(10, 1, {"/opt/editor/editor"}, paths["editor"]);
    add(11, 1, {"/opt/editor/crashpad", apps + "/run-r1.scope"});
    namespaces[10] = {.pid = "pid:[1]", .mount = "mnt:[1]"};
    for (const auto& [spaces, owner] : std::vector<std::pair<ProcessNamespaces, std::string>>{
             {{.pid = "pid:[1]", .mount = "mnt:[1]"}, paths["editor"]},
             {{.pid = "", .mount = "mnt:[1]"}, paths["editor"]},
             {{.pid = "", .mount = ""}, paths["editor"]},
             {{.pid = "pid:[2]", .mount = "mnt:[1]"}, ""},
             {{.pid = "pid:[1]", .mount = "mnt:[2]"}, ""},
             {{.pid = "", .mount = "mnt:[2]"}, ""},
         }) {
        namespaces[11] = spaces;
        EXPECT_EQ(ownerOf(11), owner) << spaces.pid << spaces.mount;
    }
}

TEST_F(ApplicationOwnersTest, namespacesAreReadForTheLastRuleAlone) {
    add(10, 1, {"/opt/editor/editor"}, paths["editor"]);
    add(11, 1, {"/opt/editor/crashpad"});
    add(12, 10, {"/opt/editor/worker", apps + "/run-r1.scope"});
    add(13, 1, {"/opt/editor/editor", "/system.slice/runner.service"});
    add(14, 1, {"/usr/bin/tool", apps + "/run-r1.scope"});
    for (const std::int32_t pid : {10, 11, 12, 13, 14}) {
        static_cast<void>(ownerOf(pid));
    }
    EXPECT_TRUE(namespacesRead.empty());
    add(15, 1, {"/opt/editor/crashpad", apps + "/run-r1.scope"});
    EXPECT_EQ(ownerOf(15), paths["editor"]);
    EXPECT_EQ(namespacesRead, (std::set<std::int32_t>{10, 15}));
}

} // namespace

} // namespace quillary::test
