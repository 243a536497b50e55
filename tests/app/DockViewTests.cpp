#include "app/view/BlurRegion.h"
#include "app/view/PixelFit.h"
#include "tests/app/DockViewFixture.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace quillary::test {
namespace {

TEST_F(DockViewTest, iconsGrowOver180MillisecondsOnEntering) {
    const DockGeometry geometry = model().geometry(model().cells());
    const QPointF first = geometry.point(geometry.rowOffset() + geometry.restCenters[0], 40);
    model().setMouse(first);
    EXPECT_NEAR(firstWidth(), 48, 1e-9);
    EXPECT_TRUE(view->animating());
    wait(0.09);
    // Ease-out is at 7/8 half-way, seen in the last frame before.
    EXPECT_GT(firstWidth(), 48 + 38.4 * 0.8);
    EXPECT_LT(firstWidth(), 48 + 38.4);
    wait(0.11);
    EXPECT_NEAR(firstWidth(), 86.4, 1e-9);
    EXPECT_FALSE(view->animating());
}

TEST_F(DockViewTest, withinTheDockIconsFollowAtOnce) {
    const DockGeometry geometry = model().geometry(model().cells());
    model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[1], 40));
    wait(1);
    const double before = firstWidth();
    model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[0], 40));
    EXPECT_GT(firstWidth(), before);
    EXPECT_NEAR(firstWidth(), 86.4, 1e-9);
    EXPECT_FALSE(view->animating());
}

TEST_F(DockViewTest, leavingInTheMiddleOfEnteringGoesBackFromThere) {
    const DockGeometry geometry = model().geometry(model().cells());
    model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[0], 40));
    wait(0.05);
    const double reached = firstWidth();
    model().setMouse(std::nullopt);
    EXPECT_NEAR(firstWidth(), reached, 4.0);
    wait(0.2);
    EXPECT_NEAR(firstWidth(), 48, 1e-9);
    EXPECT_FALSE(view->animating());
    EXPECT_FALSE(view->scene().label.has_value());
}

TEST_F(DockViewTest, hidingSlidesAndFades) {
    model().setHidden(true);
    EXPECT_DOUBLE_EQ(view->scene().opacity, 1);
    wait(0.1);
    EXPECT_LT(view->scene().opacity, 0.9);
    EXPECT_GT(view->scene().opacity, 0);
    EXPECT_GT(view->scene().offset.y(), 5);
    wait(2);
    EXPECT_DOUBLE_EQ(view->scene().opacity, 0);
    EXPECT_EQ(view->scene().offset, QPointF(0, 83));
    EXPECT_FALSE(view->animating());
}

TEST_F(DockViewTest, aDockThatHidesFadesAsOneLayer) {
    model().setHidden(true);
    wait(0.08);
    const double opacity = view->scene().opacity;
    ASSERT_GT(opacity, 0.2);
    ASSERT_LT(opacity, 0.9);
    const QPointF center = view->scene().icons[0].rect.center() + view->scene().offset;
    const QColor seen = picture().pixelColor(center.toPoint());
    EXPECT_NEAR(seen.alphaF(), opacity, 0.01);
    // Blue as the icon, with nothing of the white background behind it.
    EXPECT_EQ(seen.red(), 0);
    EXPECT_EQ(seen.green(), 0);
    EXPECT_EQ(seen.blue(), 255);
}

TEST_F(DockViewTest, aFadingDockIsPaintedWhereItsSceneIs) {
    configure([](DockConfig& config) { config.magnification = Magnification::subtle; });
    wait(1);
    view->resize(model().row().geometry.frameSize());
    model().setHidden(true);
    wait(0.08);
    const double opacity = view->scene().opacity;
    const QImage whole = picture();
    // A part alone is painted from the same pixels.
    const QRect part = view->scene().icons[0].rect.translated(view->scene().offset).toRect();
    QImage clipped(view->size(), QImage::Format_ARGB32_Premultiplied);
    clipped.fill(Qt::transparent);
    view->render(&clipped, part.topLeft(), part, QWidget::DrawChildren);
    for (int y = part.top(); y <= std::min(part.bottom(), whole.height() - 1); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            ASSERT_EQ(clipped.pixel(x, y), whole.pixel(x, y)) << x << " " << y << " at " << opacity;
        }
    }
}

TEST_F(DockViewTest, nothingIsPlannedWhileNothingMoves) {
    manager->setShowMemory(false);
    view.reset();
    wait(3);
    EXPECT_EQ(platform.scheduler().pending(), 0U);
    model().setMouse(QPointF(100, 100));
    wait(1);
    EXPECT_EQ(platform.scheduler().pending(), 0U);
}

TEST_F(DockViewTest, labelsSayTheNameWithoutAppSuffix) {
    const DockGeometry geometry = model().geometry(model().cells());
    model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[0], 40));
    ASSERT_TRUE(view->scene().label.has_value());
    EXPECT_EQ(view->scene().label->text, QStringLiteral("Mail"));
}

TEST_F(DockViewTest, theLabelNamesTheHoveredItemAtEveryMomentOfEnteringAndLeaving) {
    configure([](DockConfig& config) {
        config.items = {"/A.app", "/B.app", "/C.app", "/D.app", "/E.app", "/F.app"};
    });
    wait(1);
    const DockGeometry geometry = model().row().geometry;
    const auto named = [this] {
        const auto& label = view->scene().label;
        return label ? "/" + label->text.toStdString() + ".app" : std::string();
    };
    for (int step = 0; 2 * step < geometry.restLen; ++step) {
        const double along = geometry.rowOffset() + 2 * step;
        model().setMouse(geometry.point(along, 40));
        // By the centres that magnification leads to.
        const auto scales = geometry.scales(along, model().cells());
        const auto hit = geometry.hitTest(along, model().cells(), geometry.layout(scales).centers, scales);
        const std::string hovered = hit ? model().cells()[*hit].path : std::string();
        ASSERT_EQ(model().hoveredPath().value_or(""), hovered) << along;
        for (int moment = 0; moment < 10; ++moment) {
            ASSERT_EQ(named(), hovered) << along << " at moment " << moment;
            wait(0.02);
        }
        model().setMouse(std::nullopt);
        while (view->animating()) {
            ASSERT_EQ(named(), hovered) << along;
            wait(0.02);
        }
    }
}

TEST_F(DockViewTest, aFileThatReappearsIsBrightAgainOnTheNextRender) {
    platform.workspace().missing = {mail};
    configure([](DockConfig&) {});
    EXPECT_DOUBLE_EQ(view->scene().icons[0].opacity, 0.35);
    platform.workspace().missing = {};
    configure([](DockConfig&) {});
    EXPECT_DOUBLE_EQ(view->scene().icons[0].opacity, 1);
}

TEST_F(DockViewTest, theSystemIsAskedOnceForEachIcon) {
    platform.workspace().iconRequests.clear();
    const QImage first = picture();
    model().setMouse(onFirst);
    wait(1);
    const QImage second = picture();
    EXPECT_NE(first, second);
    EXPECT_EQ(platform.workspace().iconRequests, (std::vector<std::string>{mail, notes}));
}

TEST_F(DockViewTest, iconsAreDrawnAtTheirPlaces) {
    wait(1);
    const QImage image = picture();
    const QRectF icon = view->scene().icons[0].rect;
    EXPECT_EQ(image.pixelColor(icon.center().toPoint()), QColor(Qt::blue));
    // Above the dock there is no more than the end of its shadow.
    EXPECT_LE(image.pixelColor(icon.center().toPoint() - QPoint(0, 44)).alpha(), 3);
    EXPECT_EQ(image.pixelColor(icon.center().toPoint() - QPoint(0, 60)).alpha(), 0);
    // Between the icon and the edge lies the translucent background, beyond it nothing.
    const int below = static_cast<int>(icon.bottom()) + 8;
    const QColor background = image.pixelColor(static_cast<int>(icon.center().x()), below);
    EXPECT_GT(background.alpha(), 100);
    EXPECT_LT(background.alpha(), 200);
}

TEST_F(DockViewTest, whatIsDamagedIsWhatChangesOnTheScreen) {
    configure([](DockConfig& config) {
        for (int i = 0; i < 8; ++i) {
            std::string path("/Applications/Number ");
            path += std::to_string(i);
            config.items.push_back(path + ".app");
        }
    });
    platform.workspace().launch("/Applications/Number 7.app");
    view->resize(model().geometry(model().cells()).panelSize().toSize());
    wait(2);
    const DockGeometry geometry = model().geometry(model().cells());
    const double first = geometry.rowOffset() + geometry.restCenters[0];
    model().setMouse(geometry.point(first, 40));
    wait(1);
    const PixelGrid grid{.origin = geometry.frameOrigin()};
    for (int step = 1; step <= 54; ++step) {
        const DockScene before = fittedToPixels(view->scene(), grid);
        const QImage old = picture();
        model().setMouse(geometry.point(first + step, 40));
        const QRegion damage = DockScene::damage(before, fittedToPixels(view->scene(), grid));
        expectEqualOutside(damage.translated(grid.origin.toPoint()), old, picture());
    }
}

TEST_F(DockViewTest, namesOfAnyLengthBecomeOneShortLine) {
    const std::string odd = "/Applications/" + std::string(100000, 'x') + "\n\ty.app";
    configure([&odd](DockConfig& config) { config.items = {odd}; });
    const DockGeometry geometry = model().geometry(model().cells());
    model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[0], 40));
    ASSERT_TRUE(view->scene().label.has_value());
    EXPECT_EQ(view->scene().label->text.size(), 200);
    configure([](DockConfig& config) { config.items = {"/Applications/a\nb.app"}; });
    EXPECT_EQ(view->scene().label->text, QStringLiteral("a b"));
}

TEST_F(DockViewTest, labelsOfEquallyManyLettersHaveTheirOwnWidths) {
    configure([](DockConfig& config) {
        config.items = {"/Applications/iiiiii.app", "/Applications/WWWWWW.app"};
    });
    wait(1);
    const DockGeometry geometry = model().geometry(model().cells());
    const auto widthOn = [&](std::size_t index) {
        model().setMouse(geometry.point(geometry.rowOffset() + geometry.restCenters[index], 40));
        return view->scene().label.value().rect.width();
    };
    const double narrow = widthOn(0);
    EXPECT_GT(widthOn(1), narrow + 10);
}

TEST_F(DockViewTest, withoutBlendingEveryPixelShownIsOpaqueAndTheWindowIsShaped) {
    wait(1);
    shownIn.setComposited(false);
    const QRegion shape = shownIn.visibleShape;
    EXPECT_TRUE(shape.contains(view->scene().icons[0].rect.center().toPoint()));
    EXPECT_FALSE(shape.contains(QPoint(2, 2)));
    const QImage image = picture();
    const QRect inner = view->scene().background.rect.toRect().adjusted(20, 4, -20, -4);
    for (int x = inner.left(); x <= inner.right(); ++x) {
        ASSERT_EQ(image.pixelColor(x, inner.bottom()).alpha(), 255) << x;
    }
    model().setHidden(true);
    wait(3);
    EXPECT_TRUE(shownIn.visibleShape.isEmpty());
}

TEST_F(DockViewTest, framesComeWhileAnIconHopsAndNoLonger) {
    model().open(mail);
    EXPECT_TRUE(view->animating());
    double highest = 0;
    const double resting = view->scene().icons.at(1).rect.top();
    for (int i = 0; i < 60; ++i) {
        wait(1.0 / 60);
        highest = std::max(highest, resting - view->scene().icons.at(0).rect.top());
    }
    EXPECT_NEAR(highest, 48 * 0.45, 0.5);
    platform.workspace().launch(mail);
    wait(1);
    EXPECT_NEAR(view->scene().icons.at(0).rect.top(), resting, 1e-9);
    EXPECT_FALSE(view->animating());
}

TEST_F(DockViewTest, aHiddenDockHopsUnseenAndCostsNoFrames) {
    configure([](DockConfig& config) { config.autoHide = true; });
    wait(2);
    model().open(mail);
    wait(0.1);
    EXPECT_FALSE(view->animating());
}

TEST_F(DockViewTest, materialsAreBlurredBehindWhereTheDesktopDoesSo) {
    EXPECT_TRUE(shownIn.blurRegion.isEmpty());
    shownIn.blurs = true;
    shownIn.setComposited(true);
    // The whole background but its corners, and nothing of the room for labels.
    const QRect background = view->scene().background.rect.toAlignedRect();
    const QRect blurred = shownIn.blurRegion.boundingRect();
    EXPECT_TRUE(background.adjusted(-1, -1, 1, 1).contains(blurred));
    EXPECT_TRUE(blurred.contains(background.adjusted(1, 1, -1, -1)));
    EXPECT_TRUE(shownIn.blurRegion.contains(background.center()));
    EXPECT_FALSE(shownIn.blurRegion.contains(background.topLeft()));
    model().setHidden(true);
    wait(3);
    EXPECT_TRUE(shownIn.blurRegion.isEmpty());
    model().setHidden(false);
    wait(3);
    EXPECT_EQ(shownIn.blurRegion.boundingRect(), blurred);
}

TEST_F(DockViewTest, bubblesAreBlurredBehindOneByOne) {
    configure([](DockConfig& config) { config.style = DockStyle::bubbles; });
    shownIn.blurs = true;
    shownIn.setComposited(true);
    const auto& disc = *view->scene().icons.at(0).disc;
    EXPECT_TRUE(shownIn.blurRegion.contains(disc.center.toPoint()));
    EXPECT_FALSE(shownIn.blurRegion.contains(view->scene().background.rect.toAlignedRect().bottomLeft()));
}

TEST_F(DockViewTest, discsThatAreHardlyThereAreNotBlurredBehind) {
    configure([](DockConfig& config) { config.style = DockStyle::bubbles; });
    wait(1);
    DockScene scene = view->scene();
    scene.icons.resize(1);
    scene.icons[0].presence = 0.49;
    EXPECT_TRUE(blurRegion(scene).isEmpty());
    scene.icons[0].presence = 0.5;
    EXPECT_TRUE(blurRegion(scene).contains(scene.icons[0].disc->center.toPoint()));
}

TEST_F(DockViewTest, darkDesktopsHaveDarkDocks) {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(20, 20, 20));
    const auto night = Appearance::of(dark, Blending::translucent);
    const auto day = Appearance::of(QPalette(Qt::white), Blending::translucent);
    EXPECT_EQ(night.primaryText, QColor(Qt::white));
    EXPECT_EQ(day.primaryText, QColor(Qt::black));
    EXPECT_LT(night.fill(Material::ultraThin).lightness(), 80);
    EXPECT_GT(day.fill(Material::ultraThin).lightness(), 200);
    EXPECT_EQ(Appearance::of(dark, Blending::opaque).fill(Material::ultraThin).alpha(), 255);
}

} // namespace
} // namespace quillary::test
