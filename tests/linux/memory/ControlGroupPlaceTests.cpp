#include "platform/linux/memory/ControlGroupPlace.h"

#include <gtest/gtest.h>

#include <string>

namespace quillary::test {

namespace {

TEST(ControlGroupPlace, containersAreNamedByTheirManagers) {
    for (const std::string container :
         {"/machine.slice/libpod-01.scope",
          "/user.slice/user-1000.slice/user@1000.service/user.slice/docker-01.scope",
          "/machine.slice/machine-build.scope", "/kubepods.slice/crio-01.scope",
          "/kubepods.slice/cri-containerd-01.scope", "/user.slice/buildah-01.scope", "/lxc.payload.build",
          "/docker/01", "/libpod_parent/libpod-01", "/lxc/build"}) {
        EXPECT_EQ(controlGroupPlace(container), (ControlGroupPlace{container, "", ""}));
        EXPECT_EQ(controlGroupPlace(container + "/inner"), (ControlGroupPlace{container, "", ""}));
    }
}

TEST(ControlGroupPlace, servicesAndSessionsAreNamedBySystemd) {
    const std::string manager = "/user.slice/user-1000.slice/user@1000.service";
    EXPECT_EQ(controlGroupPlace("/system.slice/cron.service/x"),
              (ControlGroupPlace{"", "/system.slice/cron.service", ""}));
    EXPECT_EQ(controlGroupPlace(manager + "/app.slice/job@1.service"),
              (ControlGroupPlace{"", manager + "/app.slice/job@1.service", ""}));
    EXPECT_EQ(controlGroupPlace("/user.slice/user-1000.slice/session-c2.scope"),
              (ControlGroupPlace{"", "", "/user.slice/user-1000.slice/session-c2.scope"}));
}

TEST(ControlGroupPlace, insideAContainerOnlyItsOwnServicesCount) {
    EXPECT_EQ(controlGroupPlace("/a.service/libpod-1.scope"),
              (ControlGroupPlace{"/a.service/libpod-1.scope", "", ""}));
    EXPECT_EQ(controlGroupPlace("/libpod-1.scope/system.slice/a.service"),
              (ControlGroupPlace{"/libpod-1.scope", "/libpod-1.scope/system.slice/a.service", ""}));
    EXPECT_EQ(controlGroupPlace("/libpod-1.scope/docker-2.scope"),
              (ControlGroupPlace{"/libpod-1.scope/docker-2.scope", "", ""}));
}

TEST(ControlGroupPlace, otherGroupsAreNoPlace) {
    for (const char* group : {"", "/", "////", "/user.slice/user-1000.slice/user@1000.service/app.slice",
                              "/user.slice/user@1000.service/app.slice/app-gnome-docker-1.scope",
                              "/user.slice/run-r1.scope", "/docker", "/libpod-1", "/session-1"}) {
        EXPECT_EQ(controlGroupPlace(group), ControlGroupPlace()) << group;
    }
}

} // namespace

} // namespace quillary::test
