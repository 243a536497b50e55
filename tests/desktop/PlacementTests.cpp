#include "tests/desktop/DesktopFixture.h"

#include <algorithm>

namespace quillary::test {

namespace {

struct Arrangement {
    std::string options;
    int items;
    QRect left;
    QRect right;
};

class PlacementTest : public DesktopFixture {
protected:
    void expectPlaces(const Arrangement& arrangement) {
        std::vector<std::string> items(static_cast<std::size_t>(arrangement.items));
        std::ranges::generate(items, [count = 0]() mutable { return "/nowhere/" + std::to_string(count++); });
        home.writeSettings(settingsJson(
            {dockJson(leftKey, items, arrangement.options), dockJson(rightKey, items, arrangement.options)}));
        startWithDocks(2);
        EXPECT_TRUE(standAt({arrangement.left, arrangement.right}))
            << arrangement.items << " items, " << arrangement.options;
        EXPECT_TRUE(program.quit());
    }
};

} // namespace

// Length: 16 + 6 (n - 1) + n size + 3.4 size amount + 28. Depth: 36 at the bottom and the top, 200 at the
// sides, + size amount + size + 41. Both are rounded to whole pixels.

TEST_F(PlacementTest, docksAtTheBottomStandInItsMiddle) {
    // 257.12 × 141.8
    expectPlaces({R"("edge":"bottom","iconSize":48,"magnification":"subtle")", 3, QRect(512, 758, 257, 142),
                  QRect(1712, 658, 257, 142)});
    // 912.08 × 192.2
    expectPlaces({R"("edge":"bottom","iconSize":64,"magnification":"big")", 10, QRect(184, 708, 912, 192),
                  QRect(1384, 608, 912, 192)});
    // 194 × 110
    expectPlaces({R"("edge":"bottom","iconSize":33,"magnification":"off")", 4, QRect(543, 790, 194, 110),
                  QRect(1743, 690, 194, 110)});
}

TEST_F(PlacementTest, docksAtTheSidesStandInTheirMiddle) {
    // 305.8 × 257.12
    expectPlaces({R"("edge":"left","iconSize":48,"magnification":"subtle")", 3, QRect(0, 322, 306, 257),
                  QRect(1280, 272, 306, 257)});
    // 356.2 × 562.08
    expectPlaces({R"("edge":"right","iconSize":64,"magnification":"big")", 5, QRect(924, 169, 356, 562),
                  QRect(2044, 119, 356, 562)});
    // No item: 268 × 67.8
    expectPlaces({R"("edge":"right","iconSize":20,"magnification":"subtle")", 0, QRect(1012, 416, 268, 68),
                  QRect(2132, 366, 268, 68)});
}

TEST_F(PlacementTest, docksAtTheTopTouchIt) {
    // 76 × 109
    expectPlaces({R"("edge":"top","iconSize":32,"magnification":"off")", 1, QRect(602, 0, 76, 109),
                  QRect(1802, 0, 76, 109)});
}

TEST_F(PlacementTest, iconsShrinkUntilTheDockFitsItsScreen) {
    // Of 96 points on LEFT all fit, on RIGHT 91: 1172.24 × 206.6 and 1116.29 × 199.85.
    expectPlaces({R"("edge":"top","iconSize":96,"magnification":"subtle")", 10, QRect(54, 0, 1172, 207),
                  QRect(1282, 0, 1116, 200)});
    // Of 128 points 53 fit on LEFT and 46 on RIGHT: 336.4 × 890.16 and 323.8 × 787.12.
    expectPlaces({R"("edge":"left","iconSize":128,"magnification":"big")", 12, QRect(0, 5, 336, 890),
                  QRect(1280, 7, 324, 787)});
}

TEST_F(PlacementTest, docksThatCannotFitKeepTheirBeginning) {
    // Icons of 20 points at least: 1621.8 × 104, from the left end on.
    expectPlaces({R"("edge":"bottom","iconSize":48,"magnification":"subtle")", 60, QRect(0, 796, 1622, 104),
                  QRect(1280, 696, 1622, 104)});
    // 268 × 1231.8, from the bottom end on.
    expectPlaces({R"("edge":"left","iconSize":48,"magnification":"subtle")", 45, QRect(0, -332, 268, 1232),
                  QRect(1280, -432, 268, 1232)});
}

TEST_F(PlacementTest, eachScreenHasItsOwnEdge) {
    const std::vector<std::string> items{"/a", "/b", "/c"};
    home.writeSettings(settingsJson({dockJson(leftKey, items, R"("edge":"left","magnification":"off")"),
                                     dockJson(rightKey, items, R"("edge":"top","magnification":"off")")}));
    startWithDocks(2);
    // 289 × 200 and 200 × 125
    EXPECT_TRUE(standAt({QRect(0, 350, 289, 200), QRect(1740, 0, 200, 125)}));
}

} // namespace quillary::test
