#include "app/DockRow.h"
#include "app/view/Appearance.h"
#include "app/view/DockContents.h"
#include "app/view/DockFonts.h"
#include "app/view/DockPainter.h"
#include "app/view/DockSceneBuilder.h"
#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "app/view/LabelText.h"
#include "app/view/Plates.h"
#include "core/DockConfig.h"
#include "tests/app/ContrastOf.h"
#include "tests/app/SceneState.h"
#include "tests/fake/FakePlatform.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

/// An empty dock, drawn with room around its panel.
class EmptyDockTest : public testing::Test {
protected:
    static DockContents contents(DockEdge edge, double size, Magnification magnification) {
        DockConfig config({}, {}, {});
        config.edge = edge;
        // No pixels but those of the hint.
        config.style = DockStyle::minimal;
        config.iconSize = size;
        config.magnification = magnification;
        return {.row = {{}, DockGeometry(config, {}, 1000)}};
    }
    [[nodiscard]] QImage picture(const DockScene& scene, Shade shade = Shade::light) const {
        QImage image(scene.panelSize.toSize() + QSize(2 * around, 2 * around),
                     QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        IconSprites sprites(std::make_shared<IconCache>(system.icons()));
        Plates plates;
        LabelText label;
        const Appearance look = Appearance::of(desktopColours(shade), Blending::translucent);
        DockPainter(painter, look, sprites, plates, label).draw(scene, QPointF(around, around));
        painter.end();
        return image;
    }
    /// The least rectangle with all the dark text, but not its light halo; in the panel's coordinates.
    [[nodiscard]] QRect inked(const QImage& image) const {
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                if (qAlpha(pixel) > 40 && qRed(pixel) < 220) {
                    found |= QRect(x, y, 1, 1);
                }
            }
        }
        return found.translated(-around, -around);
    }
    static constexpr int around = 80;
    FakePlatform system;
};

TEST_F(EmptyDockTest, theHintIsWithinThePanelAroundItsPlace) {
    for (const DockEdge edge : allCases<DockEdge>()) {
        for (const double size : {20.0, 32.0, 48.0, 80.0, 128.0}) {
            for (const Magnification magnification :
                 {Magnification::off, Magnification::subtle, Magnification::big}) {
                const DockContents dock = contents(edge, size, magnification);
                const DockScene scene = buildDockScene(dock, {}, plainTexts());
                const QRect ink = inked(picture(scene));
                const QRect panel(QPoint(0, 0), scene.panelSize.toSize());
                EXPECT_TRUE(panel.contains(ink))
                    << rawValue(edge) << " " << size << " " << rawValue(magnification) << ": " << ink.left()
                    << " " << ink.top() << " " << ink.width() << " × " << ink.height();
                EXPECT_GT(ink.width(), 20);
                const DockGeometry& geometry = dock.row.geometry;
                const QPointF place = geometry.point(geometry.alongLength() / 2, (size + 15 + 8) / 2 + 4);
                EXPECT_NEAR(QRectF(ink).center().x(), place.x(), 3);
                EXPECT_NEAR(QRectF(ink).center().y(), place.y(), 4);
            }
        }
    }
}

TEST_F(EmptyDockTest, theHintIsSmallerOnlyWhereItHasNoRoom) {
    const QString text = QStringLiteral("Drop apps here");
    EXPECT_EQ(DockFonts::hint(text, QSizeF(200, 50)).pixelSize(), 12);
    EXPECT_EQ(DockFonts::hint(text, QSizeF(44, 60)).pixelSize(), 12);
    const int cramped = DockFonts::hint(text, QSizeF(44, 36)).pixelSize();
    EXPECT_LT(cramped, 12);
    EXPECT_GT(cramped, 8);
    EXPECT_EQ(DockFonts::hint(text, QSizeF(1, 1)).pixelSize(), 8);
}

TEST_F(EmptyDockTest, theHintCanBeReadOnWallpaperOfItsOwnShade) {
    for (const Shade shade : {Shade::light, Shade::dark}) {
        const QColor text = shade == Shade::dark ? Qt::white : Qt::black;
        const DockScene scene =
            buildDockScene(contents(DockEdge::bottom, 48, Magnification::big), {}, plainTexts());
        QImage wallpaper = picture(scene, shade);
        QPainter painter(&wallpaper);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.fillRect(wallpaper.rect(), text);
        painter.end();
        double least = 21;
        double most = 1;
        for (int y = 0; y < wallpaper.height(); ++y) {
            for (int x = 0; x < wallpaper.width(); ++x) {
                const double ratio = contrast(wallpaper.pixelColor(x, y), text);
                least = std::min(least, ratio);
                most = std::max(most, ratio);
            }
        }
        EXPECT_LT(least, 1.1);
        EXPECT_GT(most, 4.5) << static_cast<int>(shade);
    }
}

} // namespace
} // namespace quillary::test
