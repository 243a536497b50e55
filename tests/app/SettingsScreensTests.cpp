#include "app/settings/DockSettingsSection.h"
#include "tests/app/SettingsFixture.h"

namespace quillary::test {
namespace {

using Texts = std::vector<std::string>;

class SettingsScreensTest : public SettingsDesktop {};

TEST_F(SettingsScreensTest, sectionsFollowTheScreensInTheirOrder) {
    open();
    const FormGroup* kept = &group("RIGHT");
    platform.screens().set({screenNamed("RIGHT", rightFrame)});
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "RIGHT", "General"}));
    EXPECT_EQ(&group("RIGHT"), kept);
    platform.screens().set({screenNamed("NEW", leftFrame), screenNamed("RIGHT", rightFrame)});
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "NEW", "RIGHT", "General"}));
    EXPECT_EQ(&group("RIGHT"), kept);
    platform.screens().set({screenNamed("RIGHT", rightFrame), screenNamed("NEW", leftFrame)});
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "RIGHT", "NEW", "General"}));
    QApplication::processEvents();
    int bottom = 0;
    for (const auto* each : view().groups()) {
        EXPECT_GE(each->mapTo(&view(), QPoint()).y(), bottom - 1) << each->title().toStdString();
        bottom = each->mapTo(&view(), QPoint(0, each->height())).y();
        EXPECT_TRUE(each->isVisible());
    }
    EXPECT_TRUE(view().isVisible());
}

TEST_F(SettingsScreensTest, aScreenThatComesOrGoesLeavesFocusAndPlace) {
    platform.screens().connected = {screenNamed("RIGHT", rightFrame)};
    open();
    view().resize(520, 480);
    QApplication::processEvents();
    auto& focused = switchIn("RIGHT", "Show running apps");
    focused.setFocus();
    view().ensureWidgetVisible(&focused);
    const int before = focused.mapTo(&view(), QPoint()).y();
    ASSERT_GT(view().verticalScrollBar()->value(), 0);
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    QApplication::processEvents();
    EXPECT_EQ(focused.mapTo(&view(), QPoint()).y(), before);
    EXPECT_TRUE(focused.hasFocus());
    platform.screens().set({screenNamed("RIGHT", rightFrame)});
    QApplication::processEvents();
    EXPECT_EQ(focused.mapTo(&view(), QPoint()).y(), before);
    EXPECT_TRUE(focused.hasFocus());
}

TEST_F(SettingsScreensTest, twoScreensWithOneKeyShareASection) {
    auto twin = screenNamed("LEFT", rightFrame);
    platform.screens().connected = {screenNamed("LEFT", leftFrame), twin};
    open();
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "LEFT", "General"}));
}

TEST_F(SettingsScreensTest, aScreenThatIsRenamedRenamesItsSection) {
    open();
    model().setScreenName("Desk");
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "Desk", "RIGHT", "General"}));
}

TEST_F(SettingsScreensTest, anEndlessScreenNameIsCutAndWidensNothing) {
    open();
    model().setScreenName(std::string(5000, 'W') + "\n<b>x</b>");
    QApplication::processEvents();
    EXPECT_EQ(view().widget()->width(), view().viewport()->width());
    EXPECT_LE(titles().at(1).size(), 200U);
}

TEST_F(SettingsScreensTest, aFormThatIsNotScrolledStaysAtItsBeginning) {
    platform.screens().connected = {screenNamed("RIGHT", rightFrame)};
    open();
    switchIn("RIGHT", "Show a Dock on this screen").setFocus();
    ASSERT_EQ(view().verticalScrollBar()->value(), 0);
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    QApplication::processEvents();
    EXPECT_EQ(view().verticalScrollBar()->value(), 0);
    EXPECT_TRUE(switchIn("RIGHT", "Show a Dock on this screen").hasFocus());
}

TEST_F(SettingsScreensTest, theSectionOfAScreenThatGoesIsHiddenAtOnce) {
    open();
    ASSERT_EQ(view().findChildren<DockSettingsSection*>().size(), 2);
    platform.screens().set({screenNamed("RIGHT", rightFrame)});
    for (const auto* section : view().findChildren<DockSettingsSection*>()) {
        EXPECT_EQ(section->isVisible(), section->title() == QStringLiteral("RIGHT"));
    }
}

} // namespace
} // namespace quillary::test
