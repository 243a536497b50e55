#include "app/settings/VersionLabel.h"
#include "tests/app/SettingsFixture.h"

namespace quillary::test {
namespace {

using Texts = std::vector<std::string>;

class LoginSwitchTest : public SettingsDesktop {
protected:
    [[nodiscard]] Switch& login() const { return switchIn("General", "Launch Quillary at login"); }
};

TEST_F(LoginSwitchTest, showsWhatTheSystemSays) {
    platform.loginItem().current = LoginItem::Status::enabled;
    open();
    EXPECT_TRUE(login().isChecked());
}

TEST_F(LoginSwitchTest, asksTheSystemOnceForEachChange) {
    open();
    clickOn(login());
    EXPECT_EQ(platform.loginItem().current, LoginItem::Status::enabled);
    EXPECT_TRUE(login().isChecked());
    clickOn(login());
    EXPECT_EQ(platform.loginItem().current, LoginItem::Status::disabled);
    EXPECT_FALSE(login().isChecked());
    EXPECT_EQ(platform.loginItem().requests, 2);
    EXPECT_TRUE(platform.log().lines.empty());
}

TEST_F(LoginSwitchTest, aRefusalPutsItBackWithOneLineAndNoSecondTry) {
    platform.loginItem().refusal = "not for you";
    open();
    clickOn(login());
    EXPECT_FALSE(login().isChecked());
    EXPECT_EQ(platform.log().lines, Texts{"Quillary: launch at login failed not for you"});
    EXPECT_EQ(platform.loginItem().requests, 1);
    platform.loginItem().current = LoginItem::Status::enabled;
    clickOn(login());
    EXPECT_TRUE(login().isChecked());
    EXPECT_EQ(platform.loginItem().requests, 2);
    EXPECT_EQ(platform.log().lines.size(), 2U);
}

TEST(VersionLabel, joinsWhatIsKnown) {
    EXPECT_EQ(versionLabel({.shortVersion = "1.2", .build = "34"}), "1.2 (34)");
    EXPECT_EQ(versionLabel({.shortVersion = "1.2", .build = std::nullopt}), "1.2 (0)");
    EXPECT_EQ(versionLabel({.shortVersion = std::nullopt, .build = "34"}), "dev (34)");
    EXPECT_EQ(versionLabel({}), "dev (0)");
}

} // namespace
} // namespace quillary::test
