#include "app/view/DockView.h"
#include "tests/app/Fixture.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

const std::string hog = "/Applications/Hog.app";

/// LEFT's dock with one application that uses 3 GiB.
class PillTextTest : public Desktop {
protected:
    void SetUp() override {
        startWith({hog});
        platform.workspace().launch(hog);
        constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;
        manager->memory->publish({.total = 8 * gibibyte}, {{hog, 3 * gibibyte}});
    }
    /// The length of the pill without its padding, for icons of that size.
    [[nodiscard]] double textLength(double iconSize) {
        configure([iconSize](DockConfig& config) { config.iconSize = iconSize; });
        platform.scheduler().advance(2);
        return panel().contents().scene().icons.at(0).pill.value().rect.width() - 10;
    }
};

TEST_F(PillTextTest, growsInFractionsOfAPointWithItsIcon) {
    const double share = textLength(100) / 100;
    for (int step = 0; step < 43; ++step) {
        const double size = 46 + 0.8 * step;
        EXPECT_NEAR(textLength(size), size * share, 0.02) << size;
    }
}

TEST_F(PillTextTest, isNeverSmallerThan9Points) {
    EXPECT_NEAR(textLength(30), textLength(45), 1e-9);
    EXPECT_GT(textLength(46), textLength(45));
}

} // namespace
} // namespace quillary::test
