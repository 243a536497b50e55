#include "tests/linux/World.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int result = 1;
    {
        const QGuiApplication application(argc, argv);
        ::testing::InitGoogleTest(&argc, argv);
        result = RUN_ALL_TESTS();
    }
    quillary::test::World::leave();
    return result;
}
