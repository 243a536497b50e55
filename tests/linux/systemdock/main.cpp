#include "tests/linux/World.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    return result;
}
