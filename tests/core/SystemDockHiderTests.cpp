#include "core/SystemDockHider.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

using SystemDockHider::Plan;
using SystemDockHider::plan;

constexpr auto absent = std::nullopt;

TEST(SystemDockHider, hidingUntouchedPreferencesRemembersThatBothAreAbsent) {
    EXPECT_EQ(plan(true, DockPrefs{}, absent), (Plan{DockPrefs{true, 1000.0}, DockPrefs{absent, absent}}));
}

TEST(SystemDockHider, showingAfterThatRemovesBothKeys) {
    EXPECT_EQ(plan(false, DockPrefs{true, 1000.0}, DockPrefs{}), (Plan{DockPrefs{absent, absent}, absent}));
}

TEST(SystemDockHider, theUsersOwnValuesAreRememberedAndRestored) {
    EXPECT_EQ(plan(true, DockPrefs{true, 0.5}, absent),
              (Plan{DockPrefs{true, 1000.0}, DockPrefs{true, 0.5}}));
    EXPECT_EQ(plan(false, DockPrefs{true, 1000.0}, DockPrefs{true, 0.5}),
              (Plan{DockPrefs{true, 0.5}, absent}));
}

TEST(SystemDockHider, hidingWhatIsHiddenKeepsWhatIsRemembered) {
    EXPECT_EQ(plan(true, DockPrefs{true, 1000.0}, DockPrefs{false, absent}),
              (Plan{absent, DockPrefs{false, absent}}));
    EXPECT_EQ(plan(true, DockPrefs{true, 1000.0}, absent), (Plan{absent, absent}));
}

TEST(SystemDockHider, hidingFromAnotherStateReplacesWhatIsRemembered) {
    EXPECT_EQ(plan(true, DockPrefs{false, 2.0}, DockPrefs{true, 0.5}),
              (Plan{DockPrefs{true, 1000.0}, DockPrefs{false, 2.0}}));
}

TEST(SystemDockHider, showingLeavesPreferencesThatTheUserChanged) {
    EXPECT_EQ(plan(false, DockPrefs{true, 2.0}, DockPrefs{true, 0.5}), (Plan{absent, absent}));
}

TEST(SystemDockHider, showingWhatIsNotHiddenWritesNothingAndForgets) {
    EXPECT_EQ(plan(false, DockPrefs{false, absent}, absent), (Plan{absent, absent}));
    EXPECT_EQ(plan(false, DockPrefs{}, DockPrefs{true, absent}), (Plan{absent, absent}));
}

TEST(SystemDockHider, showingWithNothingRememberedRemovesBothKeys) {
    EXPECT_EQ(plan(false, DockPrefs{true, 1000.0}, absent), (Plan{DockPrefs{}, absent}));
}

TEST(SystemDockHider, onlyTheExactPairIsTheHiddenState) {
    for (const DockPrefs& current : {DockPrefs{false, 1000.0}, DockPrefs{absent, 1000.0},
                                     DockPrefs{true, absent}, DockPrefs{true, 1000.0000001}}) {
        EXPECT_EQ(plan(false, current, absent).write, absent);
        EXPECT_EQ(plan(true, current, absent), (Plan{DockPrefs{true, 1000.0}, current}));
    }
}

} // namespace

} // namespace quillary
