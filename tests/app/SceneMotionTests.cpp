#include "app/view/DockView.h"
#include "app/view/SceneMotion.h"
#include "tests/app/Fixture.h"

#include <algorithm>

namespace quillary::test {
namespace {

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";
const std::string music = "/Applications/Music.app";

/// The dock of LEFT with Mail and Notes, at rest, no magnification. Its icons are 48 wide and 54 apart.
class SceneMotionTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
        wait(2);
    }
    void wait(double seconds) { platform.scheduler().advance(seconds); }
    const DockScene& scene() const { return panel().contents().scene(); }
    bool moving() const { return panel().contents().animating(); }
    const DockScene::Icon& icon(const std::string& path) const {
        return *std::ranges::find(scene().icons, path, &DockScene::Icon::path);
    }
    /// Along the edge, from the middle of the panel, which is that of the screen.
    double place(const std::string& path) const {
        return icon(path).rect.center().x() - scene().panelSize.width() / 2;
    }
    void arrange(const std::vector<std::string>& items) const {
        configure([&items](DockConfig& config) { config.items = items; });
    }
};

TEST_F(SceneMotionTest, aCellSetsOutFromWhereItIsSeen) {
    EXPECT_DOUBLE_EQ(place(mail), -27);
    EXPECT_DOUBLE_EQ(place(notes), 27);
    arrange({notes, mail});
    EXPECT_NEAR(place(mail), -27, 1e-9);
    EXPECT_NEAR(place(notes), 27, 1e-9);
    EXPECT_TRUE(moving());
    wait(0.1);
    EXPECT_GT(place(mail), -20);
    EXPECT_LT(place(mail), 27);
    wait(1);
    EXPECT_NEAR(place(mail), 27, 1e-3);
    EXPECT_NEAR(place(notes), -27, 1e-3);
    EXPECT_FALSE(moving());
}

TEST_F(SceneMotionTest, clearEndsTheMovementOfEveryPart) {
    const DockScene seen = scene();
    DockScene wanted = seen;
    wanted.background.rect.setWidth(seen.background.rect.width() + 54);
    wanted.icons[0].rect.translate(54, 0);
    SceneMotion motion;
    motion.retarget(seen, wanted, 0);
    DockScene moved = wanted;
    motion.apply(moved, 0.01);
    EXPECT_LT(moved.background.rect.width(), wanted.background.rect.width() - 20);
    EXPECT_LT(moved.icons[0].rect.left(), wanted.icons[0].rect.left() - 20);
    motion.clear();
    moved = wanted;
    motion.apply(moved, 0.01);
    EXPECT_EQ(moved, wanted);
}

TEST_F(SceneMotionTest, followsTheSpringOf03And085) {
    arrange({notes, mail});
    // One frame of the view is at most this late.
    constexpr double frame = 0.02;
    Spring expected(0.3, 0.85, -27);
    expected.moveTo(27, 0);
    wait(0.12);
    const auto [least, most] = std::minmax({expected.value(0.12 - frame), expected.value(0.12)});
    EXPECT_GE(place(mail), least - 0.01);
    EXPECT_LE(place(mail), most + 0.01);
}

TEST_F(SceneMotionTest, newcomersFadeInAndTheOthersMakeRoom) {
    arrange({mail, music, notes});
    EXPECT_DOUBLE_EQ(icon(music).presence, 0);
    EXPECT_NEAR(place(music), 0, 1e-9);
    EXPECT_NEAR(place(mail), -27, 1e-9);
    EXPECT_NEAR(scene().background.rect.width(), 118, 1e-9);
    wait(0.1);
    EXPECT_GT(icon(music).presence, 0.1);
    EXPECT_LT(icon(music).presence, 1);
    EXPECT_GT(scene().background.rect.width(), 120);
    wait(1);
    // Exactly: a rest would blur what stands on whole pixels.
    EXPECT_EQ(icon(music).presence, 1);
    EXPECT_DOUBLE_EQ(place(mail), -54);
    EXPECT_DOUBLE_EQ(place(notes), 54);
    EXPECT_EQ(scene().background.rect.width(), 172);
}

TEST_F(SceneMotionTest, applicationsThatStartAndEndMoveTheOthers) {
    platform.workspace().launch(music);
    EXPECT_NEAR(place(mail), -27, 1e-9);
    EXPECT_EQ(icon(music).presence, 0);
    ASSERT_EQ(scene().separators.size(), 1U);
    EXPECT_EQ(scene().separators[0].opacity, 0);
    wait(1);
    EXPECT_NEAR(scene().separators[0].opacity, 0.22, 1e-3);
    const double spread = place(mail);
    EXPECT_LT(spread, -50);
    platform.workspace().quit(music);
    EXPECT_NEAR(place(mail), spread, 1e-9);
    wait(1);
    EXPECT_NEAR(place(mail), -27, 1e-3);
}

TEST_F(SceneMotionTest, anotherChangeGoesOnFromThereWithItsVelocity) {
    arrange({notes, mail});
    wait(0.08);
    const double before = place(mail);
    arrange({mail, notes});
    EXPECT_NEAR(place(mail), before, 1e-9);
    // It was on its way to the right and cannot turn in no time.
    wait(0.018);
    EXPECT_GT(place(mail), before);
    wait(1);
    EXPECT_NEAR(place(mail), -27, 1e-3);
}

TEST_F(SceneMotionTest, iconsGrowIntoAnotherSizeAwayFromTheEdge) {
    configure([](DockConfig& config) { config.iconSize = 64; });
    EXPECT_NEAR(icon(mail).rect.width(), 48, 1e-9);
    wait(0.1);
    const auto& growing = icon(mail).rect;
    EXPECT_GT(growing.width(), 49);
    EXPECT_LT(growing.width(), 64);
    EXPECT_NEAR(scene().panelSize.height() - growing.bottom(), 19, 1e-9);
    wait(1);
    EXPECT_NEAR(icon(mail).rect.width(), 64, 1e-3);
}

TEST_F(SceneMotionTest, atAnotherEdgeTheDockIsThereAtOnce) {
    configure([](DockConfig& config) {
        config.edge = DockEdge::left;
        config.items = {notes, mail};
    });
    EXPECT_FALSE(moving());
    EXPECT_NEAR(icon(notes).rect.center().y() - scene().panelSize.height() / 2, -27, 1e-9);
}

TEST_F(SceneMotionTest, iconsOfOnePathKeepTheirPlacesWhenTheRowIsListedAgain) {
    arrange({mail, notes, mail});
    wait(2);
    const DockScene resting = scene();
    arrange({mail, notes, mail});
    EXPECT_EQ(scene(), resting);
    EXPECT_FALSE(moving());
}

TEST_F(SceneMotionTest, aSecondIconOfAPathFadesInAndTheFirstStays) {
    arrange({mail, notes, mail});
    EXPECT_EQ(scene().icons.at(0).presence, 1);
    EXPECT_EQ(scene().icons.at(2).presence, 0);
    EXPECT_NEAR(scene().icons.at(2).rect.center().x() - scene().panelSize.width() / 2, 54, 1e-9);
    wait(1);
    EXPECT_EQ(scene().icons.at(2).presence, 1);
}

TEST_F(SceneMotionTest, whatNobodySeesDoesNotMove) {
    configure([](DockConfig& config) { config.autoHide = true; });
    wait(2);
    arrange({notes, mail});
    EXPECT_FALSE(moving());
    EXPECT_NEAR(place(mail), 27, 1e-9);
}

TEST_F(SceneMotionTest, thePointerIsFollowedAtOnceMeanwhile) {
    configure([](DockConfig& config) { config.magnification = Magnification::big; });
    wait(1);
    platform.pointer().moveTo({640, 860});
    wait(1);
    arrange({notes, mail});
    wait(0.05);
    const double before = icon(notes).rect.width();
    platform.pointer().moveTo({660, 860});
    EXPECT_NE(icon(notes).rect.width(), before);
}

} // namespace
} // namespace quillary::test
