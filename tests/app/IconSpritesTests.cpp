#include "app/view/IconCache.h"
#include "app/view/IconSprites.h"
#include "tests/fake/FakePlatform.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

TEST(IconSprites, areDrawnAnewForAnotherLook) {
    FakePlatform platform;
    IconSprites sprites(std::make_shared<IconCache>(platform.icons()));
    IconSprites::Look look;
    look.resting = 48;
    look.largest = 86;
    look.discFill = Qt::red;
    sprites.setLook(look);
    const QImage icon = sprites.icon("/Applications/Mail.app", 48).image;
    EXPECT_EQ(icon.width(), 50);
    EXPECT_EQ(sprites.disc(48).image.pixelColor(25, 25), QColor(Qt::red));
    look.discFill = Qt::green;
    sprites.setLook(look);
    EXPECT_EQ(sprites.disc(48).image.pixelColor(25, 25), QColor(Qt::green));
    look.resting = 64;
    sprites.setLook(look);
    EXPECT_EQ(sprites.icon("/Applications/Mail.app", 64).image.width(), 66);
}

} // namespace
} // namespace quillary::test
