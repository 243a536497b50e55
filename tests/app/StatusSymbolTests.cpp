#include "app/StatusSymbol.h"

#include <QColor>
#include <QIcon>
#include <QImage>

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

class SymbolSize : public testing::TestWithParam<int> {
protected:
    const int side = GetParam();
    const QImage picture = statusSymbol().pixmap(QSize(side, side), 1.0).toImage();

    /// How light a pixel is over a bar of that colour, 0 to 255.
    [[nodiscard]] int lightness(int x, int y, QColor bar) const {
        const QColor ink = picture.pixelColor(x, y);
        return (ink.lightness() * ink.alpha() + bar.lightness() * (255 - ink.alpha())) / 255;
    }
    [[nodiscard]] int span(QColor bar) const {
        int darkest = 255;
        int lightest = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                darkest = std::min(darkest, lightness(x, y, bar));
                lightest = std::max(lightest, lightness(x, y, bar));
            }
        }
        return lightest - darkest;
    }
};

TEST_P(SymbolSize, isDrawnAtExactlyThisSize) {
    EXPECT_EQ(picture.size(), QSize(side, side));
}

TEST_P(SymbolSize, isSeenOnDarkAndOnLightBars) {
    EXPECT_GT(span(Qt::black), 200);
    EXPECT_GT(span(Qt::white), 80);
}

TEST_P(SymbolSize, isTheSameOnBothSidesAndFreeInTheCorners) {
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side / 2; ++x) {
            EXPECT_NEAR(picture.pixelColor(x, y).alpha(), picture.pixelColor(side - 1 - x, y).alpha(), 8)
                << x << ", " << y;
        }
    }
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(side - 1, side - 1).alpha(), 0);
}

INSTANTIATE_TEST_SUITE_P(UsualSizes, SymbolSize, testing::Values(16, 22, 24, 32, 48, 64));

} // namespace
} // namespace quillary::test
