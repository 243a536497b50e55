#include "app/settings/SlimScrollBarStyle.h"
#include "tests/app/SettingsFixture.h"

namespace quillary::test {
namespace {

/// Ten pages of 100, the fifth in sight: the thumb of 32 points (the shortest) lies at 82 … 114.
class SlimScrollBarTest : public testing::Test {
protected:
    SlimScrollBarTest() {
        bar.setStyle(&style);
        bar.resize(SlimScrollBarStyle::thickness, 196);
        bar.setRange(0, 900);
        bar.setPageStep(100);
        bar.setValue(450);
    }

    /// How opaque the bar is there.
    [[nodiscard]] int inkAt(int x, int y) {
        QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        bar.render(&image, {}, {}, QWidget::RenderFlags());
        return image.pixelColor(x, y).alpha();
    }

    SlimScrollBarStyle style;
    QScrollBar bar{Qt::Vertical};
};

TEST_F(SlimScrollBarTest, isTenPointsWide) {
    EXPECT_EQ(bar.sizeHint().width(), 10);
}

TEST_F(SlimScrollBarTest, showsItsThumbAndNothingElse) {
    EXPECT_EQ(inkAt(5, 98), 64);
    EXPECT_EQ(inkAt(0, 98), 0);
    EXPECT_EQ(inkAt(5, 80), 0);
    EXPECT_EQ(inkAt(5, 116), 0);
    EXPECT_EQ(inkAt(5, 0), 0);
    bar.setValue(0);
    EXPECT_EQ(inkAt(5, 30), 64);
    EXPECT_EQ(inkAt(5, 98), 0);
}

TEST_F(SlimScrollBarTest, showsNothingWhenThereIsNothingToScroll) {
    bar.setRange(0, 0);
    for (int y = 0; y < bar.height(); ++y) {
        ASSERT_EQ(inkAt(5, y), 0) << y;
    }
    clickOn(bar, {5, 190});
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(SlimScrollBarTest, aClickAboveOrBelowTheThumbScrollsAPage) {
    clickOn(bar, {5, 190});
    EXPECT_EQ(bar.value(), 550);
    clickOn(bar, {5, 10});
    EXPECT_EQ(bar.value(), 450);
    // As far as its ends and sides.
    clickOn(bar, {0, 195});
    EXPECT_EQ(bar.value(), 550);
    clickOn(bar, {9, 0});
    EXPECT_EQ(bar.value(), 450);
}

TEST_F(SlimScrollBarTest, theThumbFollowsThePointerThatHoldsIt) {
    mouse(bar, QEvent::MouseButtonPress, {1, 98});
    EXPECT_EQ(bar.value(), 450);
    EXPECT_EQ(inkAt(5, 98), 115);
    // 160 points are the way of the thumb for 900.
    mouse(bar, QEvent::MouseMove, {1, 98 + 16});
    EXPECT_EQ(bar.value(), 540);
    mouse(bar, QEvent::MouseMove, {1, 500});
    EXPECT_EQ(bar.value(), 900);
    mouse(bar, QEvent::MouseButtonRelease, {1, 500});
    EXPECT_EQ(inkAt(5, 180), 64);
}

} // namespace
} // namespace quillary::test
