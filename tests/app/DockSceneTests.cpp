#include "app/view/DockScene.h"
#include "app/view/DockSceneBuilder.h"
#include "tests/app/Fixture.h"
#include "tests/app/SceneState.h"

namespace quillary::test {
namespace {

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";

using Ink = DockScene::Ink;

/// Scenes of LEFT's dock with two items of 48 points. Unmagnified the panel is 146 × 125 at the bottom.
class DockSceneTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        state.magnified = 1;
    }
    void shape(DockEdge edge, Magnification magnification) const {
        configure([=](DockConfig& config) {
            config.edge = edge;
            config.magnification = magnification;
        });
    }
    [[nodiscard]] DockScene scene() const {
        return buildDockScene(DockContents::of(model(), platform.files()), state, texts);
    }

    DockSceneState state;
    DockTexts texts = plainTexts();
};

TEST_F(DockSceneTest, iconsStand19PointsFromEveryEdge) {
    const std::pair<DockEdge, QRectF> first[] = {{DockEdge::bottom, {22, 58, 48, 48}},
                                                 {DockEdge::top, {22, 19, 48, 48}},
                                                 {DockEdge::left, {19, 22, 48, 48}},
                                                 {DockEdge::right, {222, 22, 48, 48}}};
    for (const auto& [edge, rect] : first) {
        shape(edge, Magnification::off);
        EXPECT_EQ(scene().icons.at(0).rect, rect) << rawValue(edge);
        EXPECT_EQ(scene().icons.at(0).path, mail);
    }
}

TEST_F(DockSceneTest, theBackgroundLeaves4PointsToTheEdge) {
    const std::pair<DockEdge, QRectF> expected[] = {{DockEdge::bottom, {14, 50, 118, 71}},
                                                    {DockEdge::top, {14, 4, 118, 71}},
                                                    {DockEdge::left, {4, 14, 71, 118}},
                                                    {DockEdge::right, {214, 14, 71, 118}}};
    for (const auto& [edge, rect] : expected) {
        shape(edge, Magnification::off);
        EXPECT_EQ(scene().background.rect, rect) << rawValue(edge);
        EXPECT_DOUBLE_EQ(scene().background.cornerRadius, 18);
    }
}

TEST_F(DockSceneTest, smallDocksHaveSmallerCorners) {
    configure([](DockConfig& config) { config.iconSize = 32; });
    // (32 + 15 + 8) · 0.3
    EXPECT_DOUBLE_EQ(scene().background.cornerRadius, 16.5);
}

TEST_F(DockSceneTest, aMagnifiedIconGrowsAwayFromTheEdge) {
    shape(DockEdge::bottom, Magnification::big);
    const DockGeometry geometry = model().geometry(model().cells());
    state.mouseAxis = geometry.rowOffset() + geometry.restCenters[0];
    const DockScene magnified = scene();
    EXPECT_NEAR(magnified.icons[0].rect.width(), 86.4, 1e-9);
    EXPECT_NEAR(magnified.icons[0].rect.bottom(), geometry.panelSize().height() - 19, 1e-9);
    EXPECT_NEAR(magnified.icons[1].rect.bottom(), geometry.panelSize().height() - 19, 1e-9);
    const double growth = magnified.icons[0].rect.width() + magnified.icons[1].rect.width() - 96;
    EXPECT_NEAR(magnified.background.rect.width(), 118 + growth, 1e-9);
}

TEST_F(DockSceneTest, magnificationComesInByShares) {
    shape(DockEdge::bottom, Magnification::big);
    const DockGeometry geometry = model().geometry(model().cells());
    state.mouseAxis = geometry.rowOffset() + geometry.restCenters[0];
    state.magnified = 0.25;
    EXPECT_NEAR(scene().icons[0].rect.width(), 48 * 1.2, 1e-9);
    state.magnified = 0;
    EXPECT_NEAR(scene().icons[0].rect.width(), 48, 1e-9);
}

TEST_F(DockSceneTest, separatorIsAThinLineBetweenTheGroups) {
    platform.workspace().launch("/Applications/A.app");
    shape(DockEdge::bottom, Magnification::off);
    ASSERT_EQ(scene().separators.size(), 1U);
    // 22 + 48 + 6 + 48 + 6 + 6.5 along; 43 from the edge; 36 long.
    EXPECT_EQ(scene().separators[0].rect, QRectF(136, 64, 1, 36));
    EXPECT_DOUBLE_EQ(scene().separators[0].opacity, 0.22);
    shape(DockEdge::left, Magnification::off);
    EXPECT_EQ(scene().separators[0].rect, QRectF(25, 136, 36, 1));
    configure([](DockConfig& config) { config.style = DockStyle::minimal; });
    EXPECT_DOUBLE_EQ(scene().separators[0].opacity, 0.35);
    configure([](DockConfig& config) { config.style = DockStyle::bubbles; });
    EXPECT_DOUBLE_EQ(scene().separators[0].opacity, 0.35);
}

TEST_F(DockSceneTest, whatDoesNotRunHasNoDot) {
    EXPECT_FALSE(scene().icons[0].dot.has_value());
}

TEST_F(DockSceneTest, aRunningApplicationHasASmallDot10PointsFromTheEdge) {
    platform.workspace().launch(mail);
    const std::pair<DockEdge, QPointF> centers[] = {{DockEdge::bottom, {46, 115}},
                                                    {DockEdge::top, {46, 10}},
                                                    {DockEdge::left, {10, 46}},
                                                    {DockEdge::right, {279, 46}}};
    for (const auto& [edge, center] : centers) {
        shape(edge, Magnification::off);
        const auto dot = scene().icons[0].dot;
        ASSERT_TRUE(dot.has_value());
        EXPECT_EQ(dot->center, center) << rawValue(edge);
        EXPECT_DOUBLE_EQ(dot->diameter, 4);
        EXPECT_EQ(dot->ink, (Ink{Ink::Source::primaryText, 0.6}));
        EXPECT_EQ(dot->glow.opacity, 0);
    }
}

TEST_F(DockSceneTest, theActiveApplicationHasALargerGlowingDot) {
    platform.workspace().launch(mail);
    platform.workspace().activate(mail);
    const auto dot = scene().icons[0].dot;
    ASSERT_TRUE(dot.has_value());
    EXPECT_DOUBLE_EQ(dot->diameter, 5);
    EXPECT_EQ(dot->ink, (Ink{Ink::Source::primaryText, 0.95}));
    EXPECT_EQ(dot->glow, (Ink{Ink::Source::white, 0.8}));
}

TEST_F(DockSceneTest, whatIsMissingIsDimmed) {
    platform.workspace().missing = {mail};
    EXPECT_DOUBLE_EQ(scene().icons[0].opacity, 0.35);
    EXPECT_DOUBLE_EQ(scene().icons[1].opacity, 1);
}

TEST_F(DockSceneTest, labelStandsOffTheMagnifiedIcon) {
    shape(DockEdge::bottom, Magnification::off);
    state.mouseAxis = 46;
    texts.labelWidth = [](const QString&) { return 60.0; };
    // 10 points of padding at each side; 48 + 19 + 18 from the edge.
    const auto bottom = scene().label;
    ASSERT_TRUE(bottom.has_value());
    EXPECT_EQ(bottom->text, QString::fromStdString(mail));
    EXPECT_DOUBLE_EQ(bottom->rect.width(), 80);
    EXPECT_EQ(bottom->rect.center(), QPointF(46, 125 - 85));
    shape(DockEdge::top, Magnification::off);
    EXPECT_EQ(scene().label->rect.center(), QPointF(46, 85));
}

TEST_F(DockSceneTest, aLabelThatThePanelWouldCutMovesInside) {
    shape(DockEdge::bottom, Magnification::off);
    texts.labelWidth = [](const QString&) { return 100.0; };
    state.mouseAxis = 46;
    EXPECT_EQ(scene().label->rect.left(), 0);
    EXPECT_EQ(scene().label->rect.width(), 120);
    state.mouseAxis = 100;
    EXPECT_EQ(scene().label->rect.right(), 146);
    texts.labelWidth = [](const QString&) { return 500.0; };
    EXPECT_EQ(scene().label->rect.center().x(), 73);
}

TEST_F(DockSceneTest, aLabelWiderThanThePanelIsCutToIt) {
    for (const DockEdge edge : {DockEdge::bottom, DockEdge::top}) {
        shape(edge, Magnification::off);
        state.mouseAxis = 46;
        texts.labelWidth = [](const QString&) { return 126.0; };
        EXPECT_FALSE(scene().label->cut);
        texts.labelWidth = [](const QString&) { return 126.5; };
        const auto label = scene().label.value();
        EXPECT_TRUE(label.cut);
        EXPECT_EQ(label.rect.left(), 0);
        EXPECT_EQ(label.rect.right(), 146);
        EXPECT_EQ(label.textRect.left(), 10);
        EXPECT_EQ(label.textRect.right(), 136);
    }
}

TEST_F(DockSceneTest, aCutLabelEndsWithinTheWindow) {
    texts.labelWidth = [](const QString&) { return 500.0; };
    shape(DockEdge::bottom, Magnification::big);
    for (int step = 0; step < 58; ++step) {
        const double size = 20 + 0.7 * step;
        configure([size](DockConfig& config) { config.iconSize = size; });
        const DockGeometry geometry = model().row().geometry;
        state.mouseAxis = geometry.rowOffset() + geometry.restCenters[0];
        ASSERT_GE(scene().label->rect.left(), 0) << size;
        ASSERT_LE(scene().label->rect.right(), geometry.frameSize().width()) << size;
    }
}

TEST_F(DockSceneTest, sideLabelsGrowAwayFromTheDockWithin180Points) {
    shape(DockEdge::left, Magnification::off);
    state.mouseAxis = 46;
    texts.labelWidth = [](const QString&) { return 50.0; };
    EXPECT_EQ(scene().label->rect.left(), 48 + 19 + 10);
    EXPECT_EQ(scene().label->rect.width(), 70);
    EXPECT_EQ(scene().label->rect.center().y(), 46);
    shape(DockEdge::right, Magnification::off);
    EXPECT_EQ(scene().label->rect.right(), 289 - 77);
    texts.labelWidth = [](const QString&) { return 500.0; };
    EXPECT_EQ(scene().label->rect.width(), 180);
}

TEST_F(DockSceneTest, aColumnReaches3PointsBeyondItsIconAtAnyDepthAndASquareDoesNot) {
    using Reach = DockScene::Reach;
    const std::pair<DockEdge, QRectF> first[] = {{DockEdge::bottom, {22, 58, 48, 48}},
                                                 {DockEdge::top, {22, 19, 48, 48}},
                                                 {DockEdge::left, {19, 22, 48, 48}},
                                                 {DockEdge::right, {222, 22, 48, 48}}};
    for (const auto& [edge, rect] : first) {
        shape(edge, Magnification::off);
        const DockScene docked = scene();
        const bool horizontal = isHorizontal(edge);
        const auto at = [&, center = rect.center()](double along, double depth) {
            return center + (horizontal ? QPointF(along, depth) : QPointF(depth, along));
        };
        const DockScene::Icon* icon = &docked.icons.at(0);
        EXPECT_EQ(docked.iconAt(at(-27, 0), Reach::column), icon) << rawValue(edge);
        EXPECT_EQ(docked.iconAt(at(-27.1, 0), Reach::column), nullptr);
        EXPECT_EQ(docked.iconAt(at(0, 40), Reach::column), icon);
        EXPECT_EQ(docked.iconAt(at(0, -40), Reach::column), icon);
        // The next icon begins 6 points further on: the first one has the place between them.
        EXPECT_EQ(docked.iconAt(at(27, 0), Reach::column), icon);
        EXPECT_EQ(docked.iconAt(at(27.1, 0), Reach::column), &docked.icons.at(1));
        EXPECT_EQ(docked.iconAt(at(-23.9, 23.9), Reach::square), icon);
        EXPECT_EQ(docked.iconAt(at(-24.1, 0), Reach::square), nullptr);
        EXPECT_EQ(docked.iconAt(at(0, 24.1), Reach::square), nullptr);
    }
}

TEST_F(DockSceneTest, noLabelOverTheSeparatorOrWithoutPointer) {
    platform.workspace().launch("/Applications/A.app");
    shape(DockEdge::bottom, Magnification::off);
    EXPECT_FALSE(scene().label.has_value());
    state.mouseAxis = 136.5;
    EXPECT_FALSE(scene().label.has_value());
}

TEST_F(DockSceneTest, anEmptyDockSaysWhatItIsFor) {
    configure([](DockConfig& config) {
        config.items = {};
        config.showRunning = false;
    });
    shape(DockEdge::bottom, Magnification::off);
    const DockScene empty = scene();
    EXPECT_TRUE(empty.icons.empty());
    ASSERT_TRUE(empty.hint.has_value());
    EXPECT_EQ(empty.hint->text, QStringLiteral("Drop apps here"));
    // 44 × 125: 39.5 points from the edge.
    EXPECT_EQ(empty.hint->room, QRectF(0, 46, 44, 79));
    EXPECT_EQ(empty.background.rect, QRectF(14, 50, 16, 71));
}

TEST_F(DockSceneTest, hiddenDocksAreMovedOffTheirEdgeBySizePlus35AndTransparent) {
    state.hidden = 1;
    const std::pair<DockEdge, QPointF> offsets[] = {{DockEdge::bottom, {0, 83}},
                                                    {DockEdge::left, {-83, 0}},
                                                    {DockEdge::right, {83, 0}},
                                                    {DockEdge::top, {0, -83}}};
    for (const auto& [edge, offset] : offsets) {
        shape(edge, Magnification::off);
        EXPECT_EQ(scene().offset, offset) << rawValue(edge);
        EXPECT_DOUBLE_EQ(scene().opacity, 0);
    }
    state.hidden = 0;
    EXPECT_EQ(scene().offset, QPointF(0, 0));
    EXPECT_DOUBLE_EQ(scene().opacity, 1);
}

TEST_F(DockSceneTest, equalScenesHaveNoDamage) {
    EXPECT_EQ(scene(), scene());
    EXPECT_TRUE(DockScene::damage(scene(), scene()).isEmpty());
}

TEST_F(DockSceneTest, aNewDotDamagesItsIconAlone) {
    shape(DockEdge::bottom, Magnification::off);
    const DockScene before = scene();
    platform.workspace().launch(mail);
    const QRegion damage = DockScene::damage(before, scene());
    EXPECT_TRUE(damage.contains(QPoint(46, 115)));
    EXPECT_FALSE(damage.contains(QPoint(100, 115)));
}

TEST_F(DockSceneTest, anIconExtendsToWhereItsShadowEnds) {
    const DockScene::Icon icon{.path = mail,
                               .rect = QRectF(100, 100, 48, 48),
                               .shadow = {.opacity = 0.45, .radius = 5, .offset = {0, 1}}};
    // Twice the radius, the offset, and a point for antialiasing.
    EXPECT_EQ(DockScene::extentOf(icon), QRect(88, 88, 72, 72));
}

TEST_F(DockSceneTest, damageCoversEveryPartThatChanged) {
    shape(DockEdge::bottom, Magnification::subtle);
    const DockScene before = scene();
    state.mouseAxis = 100;
    const DockScene after = scene();
    const QRegion damage = DockScene::damage(before, after);
    for (const DockScene* either : {&before, &after}) {
        for (const auto& icon : either->icons) {
            EXPECT_EQ(damage & icon.rect.toRect(), QRegion(icon.rect.toRect()));
        }
    }
    EXPECT_TRUE(damage.contains(after.label->rect.center().toPoint()));
    EXPECT_TRUE(
        damage.contains(QPointF(after.background.rect.left(), after.background.rect.center().y()).toPoint()));
}

} // namespace
} // namespace quillary::test
