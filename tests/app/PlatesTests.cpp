#include "app/view/Plates.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace quillary {
namespace {

const Plates::Look look{.cornerRadius = 10,
                        .fill = QColor(255, 0, 0, 128),
                        .border = QColor(0, 0, 255, 255),
                        .borderWidth = 1,
                        .shadow = QColor(0, 0, 0, 128),
                        .shadowRadius = 8,
                        .shadowOffset = {0, 2}};

QImage drawn(Plates& plates, const QRectF& plate, const Plates::Look& as, double ratio = 1) {
    QImage image((QSizeF(300, 160) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    plates.draw(painter, plate, as);
    return image;
}

TEST(Plates, haveAFillABorderInsideAndRoundCorners) {
    Plates plates;
    const QImage image = drawn(plates, {50, 50, 200, 60}, look);
    EXPECT_EQ(image.pixelColor(150, 80), QColor(255, 0, 0, 128));
    EXPECT_EQ(image.pixelColor(150, 50).rgb(), QColor(0, 0, 255).rgb());
    EXPECT_EQ(image.pixelColor(150, 109).rgb(), QColor(0, 0, 255).rgb());
    EXPECT_EQ(image.pixelColor(50, 80).rgb(), QColor(0, 0, 255).rgb());
    // The corner's own pixel belongs to the shadow alone.
    EXPECT_EQ(image.pixelColor(50, 50).red(), 0);
}

TEST(Plates, castASoftShadowThatLeavesThePlateAlone) {
    Plates plates;
    const QImage image = drawn(plates, {50, 50, 200, 60}, look);
    const int near = image.pixelColor(150, 112).alpha();
    const int far = image.pixelColor(150, 120).alpha();
    EXPECT_GT(near, 40);
    EXPECT_LT(near, 128);
    EXPECT_GT(near, far);
    EXPECT_EQ(image.pixelColor(150, 140).alpha(), 0);
    // Two points down: more of it below than above.
    EXPECT_GT(image.pixelColor(150, 113).alpha(), image.pixelColor(150, 46).alpha());
    Plates::Look bare = look;
    bare.shadowRadius = 0;
    EXPECT_EQ(drawn(plates, {50, 50, 200, 60}, bare).pixelColor(150, 112).alpha(), 0);
}

TEST(Plates, aStretchedPlateLooksLikeOneRenderedWhole) {
    // Standing and lying plates take the two ways of stretching; a square one is rendered as it is.
    Plates plates;
    const QImage lying = drawn(plates, {30, 40, 240, 70}, look);
    for (int x = 110; x < 190; ++x) {
        for (int y = 0; y < 160; ++y) {
            ASSERT_EQ(lying.pixel(x, y), lying.pixel(109, y)) << x << " " << y;
        }
    }
    for (int x = 0; x < 150; ++x) {
        for (int y = 0; y < 160; ++y) {
            // Both ends are rendered, and smoothed, on their own.
            ASSERT_NEAR(lying.pixelColor(x, y).alpha(), lying.pixelColor(299 - x, y).alpha(), 6)
                << x << " " << y;
        }
    }
    const QImage standing = drawn(plates, {100, 20, 40, 120}, look);
    for (int y = 70; y < 90; ++y) {
        ASSERT_EQ(standing.pixel(120, y), standing.pixel(120, 80));
        ASSERT_EQ(standing.pixel(95, y), standing.pixel(95, 80));
    }
}

TEST(Plates, shortPlatesAreWhole) {
    Plates plates;
    const QImage image = drawn(plates, {100, 60, 30, 23}, look);
    EXPECT_EQ(image.pixelColor(115, 70), QColor(255, 0, 0, 128));
    // The border, of which the curve has taken a little.
    EXPECT_GT(image.pixelColor(100, 71).blue(), 200);
    EXPECT_EQ(image.pixel(129, 71), image.pixel(100, 71));
    EXPECT_GT(image.pixelColor(132, 73).alpha(), 0);
}

TEST(Plates, areSharpAtTwiceTheScale) {
    Plates plates;
    const QImage image = drawn(plates, {50.25, 50.25, 200, 60}, look, 2);
    // 100.5 device pixels round to 101; the border is two pixels wide.
    EXPECT_LT(image.pixelColor(300, 100).blue(), 10);
    EXPECT_EQ(image.pixelColor(300, 101).rgb(), QColor(0, 0, 255).rgb());
    EXPECT_EQ(image.pixelColor(300, 102).rgb(), QColor(0, 0, 255).rgb());
    EXPECT_EQ(image.pixelColor(300, 103), QColor(255, 0, 0, 128));
}

TEST(Plates, anEmptyPlateDrawsNothing) {
    Plates plates;
    const QImage image = drawn(plates, {50, 50, 0.2, 60}, look);
    EXPECT_EQ(image.pixelColor(50, 80).alpha(), 0);
}

} // namespace
} // namespace quillary
