#include "app/view/DockScene.h"
#include "app/view/DockSceneBuilder.h"
#include "tests/app/Fixture.h"
#include "tests/app/SceneState.h"

#include <cmath>
#include <map>
#include <numbers>

namespace quillary::test {
namespace {

using Background = DockScene::Background;
using Ink = DockScene::Ink;
using Shadow = DockScene::Shadow;

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";
constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;

/// Scenes of LEFT's dock with two items of 48 points at the bottom, no magnification: the panel is 146 × 125.
class StyleSceneTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
    }
    DockScene scene(DockStyle style) const {
        configure([style](DockConfig& config) { config.style = style; });
        return buildDockScene(DockContents::of(model(), platform.files()), state, plainTexts());
    }
    DockScene scene(DockStyle style, DockEdge edge) const {
        configure([edge](DockConfig& config) { config.edge = edge; });
        return scene(style);
    }
    /// Mail is the hog: 3 GiB of 8.
    void makeHog() const { manager->memory->publish({.total = 8 * gibibyte}, {{mail, 3 * gibibyte}}); }

    DockSceneState state;
};

TEST_F(StyleSceneTest, glassIsThinWithContinuousCorners) {
    const Background look = scene(DockStyle::glass).background;
    EXPECT_EQ(look.rect, QRectF(14, 50, 118, 71));
    EXPECT_EQ(look.outline, Background::Outline::rounded);
    EXPECT_DOUBLE_EQ(look.cornerRadius, 18);
    EXPECT_EQ(look.material, Material::ultraThin);
    EXPECT_EQ(look.border, (Ink{Ink::Source::white, 0.22}));
    EXPECT_DOUBLE_EQ(look.borderWidth, 1);
    EXPECT_EQ(look.shadow, (Shadow{0.28, 8, {0, 2}}));
    EXPECT_EQ(look.farWhite, 0);
}

TEST_F(StyleSceneTest, theCornerIsCappedFromA60PointThickness) {
    // (36 + 23) · 0.3 and (37 + 23) · 0.3
    configure([](DockConfig& config) { config.iconSize = 36; });
    EXPECT_DOUBLE_EQ(scene(DockStyle::glass).background.cornerRadius, 17.7);
    configure([](DockConfig& config) { config.iconSize = 37; });
    EXPECT_DOUBLE_EQ(scene(DockStyle::glass).background.cornerRadius, 18);
}

TEST_F(StyleSceneTest, pillHasRoundEnds) {
    const Background look = scene(DockStyle::pill).background;
    EXPECT_EQ(look.rect, QRectF(14, 50, 118, 71));
    EXPECT_EQ(look.outline, Background::Outline::capsule);
    EXPECT_DOUBLE_EQ(look.cornerRadius, 35.5);
    EXPECT_EQ(look.material, Material::regular);
    EXPECT_EQ(look.border, (Ink{Ink::Source::white, 0.22}));
    EXPECT_DOUBLE_EQ(look.borderWidth, 1);
    EXPECT_EQ(look.shadow, (Shadow{0.3, 10, {0, 3}}));
}

TEST_F(StyleSceneTest, bubblesAndMinimalShowNoBackground) {
    for (const DockStyle style : {DockStyle::bubbles, DockStyle::minimal}) {
        const Background look = scene(style).background;
        EXPECT_EQ(look.rect, QRectF(14, 50, 118, 71));
        EXPECT_EQ(look.outline, Background::Outline::capsule);
        EXPECT_EQ(look.material, Material::none);
        EXPECT_DOUBLE_EQ(look.farWhite, 0.001);
        EXPECT_DOUBLE_EQ(look.nearWhite, 0.001);
        EXPECT_EQ(look.borderWidth, 0);
        EXPECT_EQ(look.shadow, Shadow{});
    }
}

TEST_F(StyleSceneTest, shelfIsShallowWithABorderOfItsOwn) {
    const std::pair<DockEdge, QRectF> expected[] = {{DockEdge::bottom, {14, 79.6, 118, 41.4}},
                                                    {DockEdge::top, {14, 4, 118, 41.4}},
                                                    {DockEdge::left, {4, 14, 41.4, 118}},
                                                    {DockEdge::right, {243.6, 14, 41.4, 118}}};
    for (const auto& [edge, rect] : expected) {
        const Background look = scene(DockStyle::shelf, edge).background;
        EXPECT_NEAR(look.rect.x(), rect.x(), 1e-9) << rawValue(edge);
        EXPECT_NEAR(look.rect.y(), rect.y(), 1e-9) << rawValue(edge);
        EXPECT_NEAR(look.rect.width(), rect.width(), 1e-9) << rawValue(edge);
        EXPECT_NEAR(look.rect.height(), rect.height(), 1e-9) << rawValue(edge);
        EXPECT_EQ(look.outline, Background::Outline::shelf);
        EXPECT_EQ(look.material, Material::ultraThin);
        EXPECT_DOUBLE_EQ(look.farWhite, 0.6);
        EXPECT_DOUBLE_EQ(look.nearWhite, 0.12);
        EXPECT_EQ(look.border, (Ink{Ink::Source::white, 0.85}));
        EXPECT_DOUBLE_EQ(look.borderWidth, 1.2);
        EXPECT_EQ(look.shadow, (Shadow{0.4, 8, {0, 3}}));
    }
}

TEST_F(StyleSceneTest, filesOverItAreAnswered) {
    state.dropTargeted = true;
    for (const DockStyle style : {DockStyle::glass, DockStyle::pill, DockStyle::shelf}) {
        const Background look = scene(style).background;
        EXPECT_EQ(look.border, (Ink{Ink::Source::accent, 1}));
        EXPECT_DOUBLE_EQ(look.borderWidth, 2);
    }
    for (const DockStyle style : {DockStyle::bubbles, DockStyle::minimal}) {
        const Background look = scene(style).background;
        EXPECT_DOUBLE_EQ(look.farWhite, 0.12);
        EXPECT_DOUBLE_EQ(look.nearWhite, 0.12);
        EXPECT_EQ(look.borderWidth, 0);
    }
}

TEST_F(StyleSceneTest, iconsCastTheShadowOfTheirStyle) {
    const std::map<DockStyle, Shadow> expected{
        {DockStyle::glass, {0.15, 2, {0, 1}}},   {DockStyle::pill, {0.15, 2, {0, 1}}},
        {DockStyle::bubbles, {0.15, 2, {0, 1}}}, {DockStyle::minimal, {0.45, 5, {0, 1}}},
        {DockStyle::shelf, {0.15, 2, {0, 1}}},
    };
    EXPECT_EQ(expected.size(), allCases<DockStyle>().size());
    for (const auto& [style, shadow] : expected) {
        EXPECT_EQ(scene(style).icons[0].shadow, shadow) << rawValue(style);
    }
}

TEST_F(StyleSceneTest, onlyBubblesHaveDiscs) {
    for (const DockStyle style : allCases<DockStyle>()) {
        EXPECT_EQ(scene(style).icons[0].disc.has_value(), style == DockStyle::bubbles) << rawValue(style);
    }
    const auto icon = scene(DockStyle::bubbles).icons[0];
    EXPECT_EQ(icon.disc->center, icon.rect.center());
    EXPECT_NEAR(icon.disc->diameter, 54.72, 1e-9);
}

TEST_F(StyleSceneTest, whatIsDraggedOverAnItemHighlightsIt) {
    state.targetedItem = ItemId{notes};
    EXPECT_EQ(scene(DockStyle::glass).icons[0].highlight, 0);
    EXPECT_DOUBLE_EQ(scene(DockStyle::glass).icons[1].highlight, 0.35);
}

TEST_F(StyleSceneTest, aLaunchingIconHopsAwayFromTheEdge) {
    model().open(mail);
    ASSERT_TRUE(model().bouncing().contains(mail));
    const std::pair<DockEdge, QPointF> directions[] = {{DockEdge::bottom, {0, -1}},
                                                       {DockEdge::left, {1, 0}},
                                                       {DockEdge::right, {-1, 0}},
                                                       {DockEdge::top, {0, 1}}};
    for (const auto& [edge, direction] : directions) {
        state.time = 0;
        const DockScene resting = scene(DockStyle::bubbles, edge);
        // 0.275 s is the middle of a hop of 0.55 s: 0.45 × 48 high. 7.3 hops later it is at sin(0.3 π).
        for (const auto& [time, height] :
             {std::pair{0.275, 21.6}, {0.55 * 7.3, 21.6 * std::sin(0.3 * std::numbers::pi)}, {0.55, 0.0}}) {
            state.time = time;
            const DockScene hopping = scene(DockStyle::bubbles, edge);
            const QPointF moved = hopping.icons[0].rect.center() - resting.icons[0].rect.center();
            EXPECT_NEAR(moved.x(), direction.x() * height, 1e-6) << rawValue(edge) << time;
            EXPECT_NEAR(moved.y(), direction.y() * height, 1e-6) << rawValue(edge) << time;
            EXPECT_EQ(hopping.icons[0].disc->center, hopping.icons[0].rect.center());
            EXPECT_EQ(hopping.icons[0].dot, resting.icons[0].dot);
            EXPECT_EQ(hopping.icons[1], resting.icons[1]);
        }
    }
}

TEST_F(StyleSceneTest, aHogThatRunsHasARedDotAndAPill) {
    makeHog();
    EXPECT_FALSE(scene(DockStyle::glass).icons[0].pill);
    EXPECT_FALSE(scene(DockStyle::glass).icons[0].dot);
    platform.workspace().launch(mail);
    const auto icon = scene(DockStyle::glass).icons[0];
    ASSERT_TRUE(icon.dot);
    EXPECT_DOUBLE_EQ(icon.dot->diameter, 8);
    EXPECT_EQ(icon.dot->ink, (Ink{Ink::Source::red, 1}));
    EXPECT_EQ(icon.dot->glow, (Ink{Ink::Source::red, 0.9}));
    ASSERT_TRUE(icon.pill);
    EXPECT_EQ(icon.pill->text, QStringLiteral("3.0 GB"));
    EXPECT_DOUBLE_EQ(icon.pill->fontSize, 9.6);
    // Six letters of 5.76 points and 5 at each side; 11.52 high and 1.5 above and below.
    EXPECT_NEAR(icon.pill->rect.width(), 44.56, 1e-9);
    EXPECT_NEAR(icon.pill->rect.height(), 14.52, 1e-9);
    EXPECT_NEAR(icon.pill->rect.right(), icon.rect.right() + 8.64, 1e-9);
    EXPECT_NEAR(icon.pill->rect.top(), icon.rect.top() - 3.84, 1e-9);
}

TEST_F(StyleSceneTest, smallPillsKeepAReadableFont) {
    configure([](DockConfig& config) { config.iconSize = 32; });
    platform.workspace().launch(mail);
    makeHog();
    EXPECT_DOUBLE_EQ(scene(DockStyle::glass).icons[0].pill->fontSize, 9);
}

TEST_F(StyleSceneTest, aHeavyApplicationHasAnAmberDotAndNoPill) {
    platform.workspace().launch(mail);
    manager->memory->publish({.total = 8 * gibibyte}, {{mail, gibibyte}});
    const auto icon = scene(DockStyle::glass).icons[0];
    ASSERT_TRUE(icon.dot);
    EXPECT_DOUBLE_EQ(icon.dot->diameter, 7);
    EXPECT_EQ(icon.dot->ink, (Ink{Ink::Source::amber, 1}));
    EXPECT_EQ(icon.dot->glow, (Ink{Ink::Source::amber, 0.9}));
    EXPECT_FALSE(icon.pill);
}

TEST_F(StyleSceneTest, withoutMemoryDisplayAHogIsLikeAnyOther) {
    platform.workspace().launch(mail);
    makeHog();
    model().setShowMemory(false);
    const auto icon = scene(DockStyle::glass).icons[0];
    EXPECT_FALSE(icon.pill);
    EXPECT_DOUBLE_EQ(icon.dot->diameter, 4);
}

} // namespace
} // namespace quillary::test
