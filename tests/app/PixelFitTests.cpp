#include "app/view/DockSceneBuilder.h"
#include "app/view/PixelFit.h"
#include "tests/app/Fixture.h"
#include "tests/app/SceneState.h"

namespace quillary::test {
namespace {

/// A dock of an icon of 48 points that isn't magnified, at 20, 58 of its panel.
DockScene plainScene() {
    DockScene scene;
    scene.panelSize = QSizeF(200, 125);
    scene.iconSize = 48;
    scene.background.rect = QRectF(14, 50, 118, 71);
    scene.icons.push_back({.path = "/a",
                           .rect = QRectF(20, 58, 48, 48),
                           .shadow = {},
                           .dot = DockScene::Dot{.center = QPointF(44, 115), .diameter = 4}});
    return scene;
}

DockScene movedBy(double along) {
    DockScene scene = plainScene();
    scene.icons[0].rect.translate(along, 0);
    scene.icons[0].dot->center.rx() += along;
    return scene;
}

} // namespace

TEST(PixelFit, aRestingIconAndItsDotStandOnWholePixels) {
    EXPECT_EQ(fittedToPixels(plainScene(), {}), plainScene());
    EXPECT_EQ(fittedToPixels(movedBy(0.4), {}), plainScene());
    EXPECT_EQ(fittedToPixels(movedBy(-0.4), {}), plainScene());
    EXPECT_EQ(fittedToPixels(movedBy(0.6), {}), movedBy(1));
}

TEST(PixelFit, atTwoPixelsAPointHalfPointsAreWholePixels) {
    EXPECT_EQ(fittedToPixels(movedBy(0.2), {.ratio = 2}), plainScene());
    EXPECT_EQ(fittedToPixels(movedBy(0.3), {.ratio = 2}), movedBy(0.5));
}

TEST(PixelFit, thePixelsAreThoseOfTheDevice) {
    const DockScene fitted = fittedToPixels(plainScene(), {.origin = QPointF(0.25, 0)});
    EXPECT_EQ(fitted.icons[0].rect, QRectF(19.75, 58, 48, 48));
    EXPECT_EQ(fitted.icons[0].dot->center, QPointF(43.75, 115));
}

TEST(PixelFit, whatBelongsToARestingIconGoesWithIt) {
    DockScene scene = movedBy(0.4);
    scene.icons[0].disc = DockScene::Disc{.center = QPointF(44.4, 82), .diameter = 54.72};
    scene.icons[0].pill =
        DockScene::Pill{.text = QStringLiteral("2.0 GB"), .fontSize = 9.6, .rect{60.4, 50, 40, 15}};
    const DockScene fitted = fittedToPixels(scene, {});
    EXPECT_EQ(fitted.icons[0].disc->center, QPointF(44, 82));
    EXPECT_DOUBLE_EQ(fitted.icons[0].disc->diameter, 54.72);
    EXPECT_EQ(fitted.icons[0].pill->rect, QRectF(60, 50, 40, 15));
}

TEST(PixelFit, atASideTheDotIsFittedDownwards) {
    DockScene scene = plainScene();
    scene.edge = DockEdge::left;
    scene.icons[0].rect = QRectF(19, 20.4, 48, 48);
    scene.icons[0].dot->center = QPointF(10.3, 44.4);
    const DockScene fitted = fittedToPixels(scene, {});
    EXPECT_EQ(fitted.icons[0].rect, QRectF(19, 20, 48, 48));
    EXPECT_EQ(fitted.icons[0].dot->center, QPointF(10.3, 44));
}

TEST(PixelFit, magnifiedAndPressedIconsMoveFreely) {
    DockScene magnified = movedBy(0.4);
    magnified.icons[0].rect.setSize(QSizeF(48.5, 48.5));
    EXPECT_EQ(fittedToPixels(magnified, {}), magnified);
    DockScene pressed = movedBy(0.4);
    pressed.icons[0].pressed = 0.5;
    EXPECT_EQ(fittedToPixels(pressed, {}), pressed);
}

TEST(PixelFit, theSidesOfPlatesAreRounded) {
    DockScene scene = plainScene();
    scene.background.rect = QRectF(13.7, 50, 118.6, 71);
    scene.separators.push_back({.rect = QRectF(99.6, 61, 1, 36), .opacity = 0.22});
    scene.label = DockScene::Label{.text = QStringLiteral("Mail"),
                                   .rect = QRectF(30.3, 10.4, 60, 22.6),
                                   .textRect = QRectF(40.3, 14.4, 40, 14.6)};
    const DockScene fitted = fittedToPixels(scene, {});
    EXPECT_EQ(fitted.background.rect, QRectF(14, 50, 118, 71));
    EXPECT_EQ(fitted.separators[0].rect, QRectF(100, 61, 1, 36));
    EXPECT_EQ(fitted.label->rect, QRectF(30, 10, 60, 23));
    EXPECT_EQ(fitted.label->textRect, QRectF(40, 14, 40, 15));
}

namespace {

class DamageTest : public Desktop {};

} // namespace

TEST_F(DamageTest, aPointerThatMovesAPointRedrawsTheIconsAroundItOnly) {
    std::vector<std::string> items;
    items.reserve(20);
    for (int i = 0; i < 20; ++i) {
        std::string path("/Applications/Number ");
        path += std::to_string(i);
        items.push_back(path + ".app");
    }
    startWith(items);
    configure([](DockConfig& config) { config.magnification = Magnification::subtle; });
    const DockGeometry geometry = model().geometry(model().cells());
    const double tenth = geometry.rowOffset() + geometry.restCenters[9];
    const DockContents contents = DockContents::of(model(), platform.files());
    DockSceneState state;
    state.magnified = 1;
    state.mouseAxis = tenth;
    const DockScene before = fittedToPixels(buildDockScene(contents, state, plainTexts()), {});
    state.mouseAxis = tenth + 1;
    const QRect damage =
        DockScene::damage(before, fittedToPixels(buildDockScene(contents, state, plainTexts()), {}))
            .boundingRect();
    EXPECT_TRUE(damage.contains(QPointF(tenth, 100).toPoint())) << damage.left() << " " << damage.right();
    EXPECT_LT(damage.width(), geometry.restLen / 2);
}

} // namespace quillary::test
