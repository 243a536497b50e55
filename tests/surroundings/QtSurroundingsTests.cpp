#include "tests/surroundings/QtSurroundings.h"

namespace quillary::test {

TEST(TestSurroundings, fontsAndIconsAreOwn) {
    expectOwnFontsAndIcons();
}

} // namespace quillary::test
