#include "platform/x11/X11WindowKind.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

X11Atoms atoms() {
    X11Atoms atoms;
    atoms.netWmStateSkipTaskbar = 1;
    atoms.netWmStateAbove = 2;
    atoms.netWmWindowTypeNormal = 10;
    atoms.netWmWindowTypeDialog = 11;
    atoms.netWmWindowTypeUtility = 12;
    atoms.netWmWindowTypeDock = 20;
    atoms.netWmWindowTypeDesktop = 21;
    atoms.netWmWindowTypeTooltip = 22;
    return atoms;
}

} // namespace

TEST(X11WindowKind, windowsWithoutTypesAreNormal) {
    EXPECT_TRUE(X11WindowKind::isNormal(atoms(), {}, {}));
    EXPECT_TRUE(X11WindowKind::isNormal(atoms(), {}, {2}));
}

TEST(X11WindowKind, docksDesktopsAndTooltipsAreNot) {
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {20}, {}));
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {21}, {}));
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {22}, {}));
}

TEST(X11WindowKind, dialogsAreAndUtilitiesAreNot) {
    EXPECT_TRUE(X11WindowKind::isNormal(atoms(), {11}, {}));
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {12}, {}));
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {12, 10}, {}));
}

TEST(X11WindowKind, theFirstKnownTypeDecides) {
    EXPECT_TRUE(X11WindowKind::isNormal(atoms(), {99, 10, 20}, {}));
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {99, 20, 10}, {}));
    EXPECT_TRUE(X11WindowKind::isNormal(atoms(), {99}, {}));
}

TEST(X11WindowKind, windowsThatSkipTheTaskBarAreNot) {
    EXPECT_FALSE(X11WindowKind::isNormal(atoms(), {10}, {2, 1}));
}

} // namespace quillary
