#include "tests/app/Fixture.h"

namespace quillary::test {
namespace {

RunningApplication entry(std::uint64_t handle, std::optional<std::string> path,
                         std::optional<std::string> identifier,
                         ActivationPolicy policy = ActivationPolicy::regular) {
    return {.handle = handle,
            .policy = policy,
            .bundlePath = std::move(path),
            .bundleIdentifier = std::move(identifier)};
}

class RunningAppsTest : public testing::Test {
protected:
    FakeWorkspace workspace;
    const std::string mail = "/Applications/Mail.app";
    const std::string notes = "/Applications/Notes.app";
};

TEST_F(RunningAppsTest, isFilledWhenItIsMade) {
    workspace.running = {entry(1, mail, "mail")};
    workspace.front = workspace.running[0];
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.paths(), std::vector<std::string>{mail});
    EXPECT_EQ(tracker.activePath(), mail);
}

TEST_F(RunningAppsTest, keepsTheSystemsOrderAndDropsWhatIsNotRegular) {
    workspace.running = {entry(1, notes, "notes"), entry(2, "/a.app", "a", ActivationPolicy::accessory),
                         entry(3, mail, "mail"), entry(4, "/b.app", "b", ActivationPolicy::prohibited),
                         entry(5, std::nullopt, "c")};
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.paths(), (std::vector<std::string>{notes, mail}));
}

TEST_F(RunningAppsTest, leavesThisProgramOut) {
    workspace.ownIdentifier = "own";
    workspace.running = {entry(1, "/Applications/Own.app", "own"), entry(2, mail, std::nullopt)};
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.paths(), std::vector<std::string>{mail});
}

TEST_F(RunningAppsTest, twoAbsentIdentifiersCountAsEqual) {
    workspace.ownIdentifier = std::nullopt;
    workspace.running = {entry(1, notes, std::nullopt), entry(2, mail, "mail")};
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.paths(), std::vector<std::string>{mail});
}

TEST_F(RunningAppsTest, twoInstancesOfOneBundleStandTwiceAndTheFirstIsFound) {
    workspace.running = {entry(7, mail, "mail"), entry(8, mail, "mail")};
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.paths(), (std::vector<std::string>{mail, mail}));
    ASSERT_NE(tracker.app(mail), nullptr);
    EXPECT_EQ(tracker.app(mail)->handle, 7U);
}

TEST_F(RunningAppsTest, pathsAreComparedByteByByte) {
    workspace.running = {entry(1, mail, "mail")};
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.app("/applications/mail.app"), nullptr);
    EXPECT_EQ(tracker.app("/Applications/Mail.app/"), nullptr);
}

TEST_F(RunningAppsTest, theApplicationInFrontIsNotFiltered) {
    workspace.front = entry(9, "/Applications/Own.app", workspace.ownIdentifier, ActivationPolicy::accessory);
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.activePath(), "/Applications/Own.app");
    EXPECT_TRUE(tracker.apps().empty());
}

TEST_F(RunningAppsTest, noPathInFrontMeansNoActivePath) {
    workspace.front = entry(9, std::nullopt, "x");
    const RunningApps tracker(workspace);
    EXPECT_EQ(tracker.activePath(), std::nullopt);
}

TEST_F(RunningAppsTest, everyNotificationAssignsBothFieldsChangedOrNot) {
    const RunningApps tracker(workspace);
    const Count apps(&tracker, &RunningApps::appsChanged);
    const Count active(&tracker, &RunningApps::activePathChanged);
    workspace.launch(mail);
    EXPECT_EQ(tracker.paths(), std::vector<std::string>{mail});
    workspace.activate(mail);
    EXPECT_EQ(tracker.activePath(), mail);
    workspace.activate(mail);
    workspace.quit(mail);
    EXPECT_TRUE(tracker.apps().empty());
    EXPECT_EQ(apps.times, 4);
    EXPECT_EQ(active.times, 4);
}

} // namespace
} // namespace quillary::test
