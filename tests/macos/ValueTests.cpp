#include "platform/macos/ApplicationPolicy.h"
#include "platform/macos/DisplayNumber.h"
#include "platform/macos/PreferenceValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillary::test {
namespace {

TEST(PreferenceValue, booleansAreTakenAsTheyAre) {
    EXPECT_EQ(PreferenceValue{true}.boolean(), true);
    EXPECT_EQ(PreferenceValue{false}.boolean(), false);
}

TEST(PreferenceValue, onlyTheNumbersZeroAndOneAreBooleans) {
    EXPECT_EQ(PreferenceValue{1.0}.boolean(), true);
    EXPECT_EQ(PreferenceValue{0.0}.boolean(), false);
    EXPECT_EQ(PreferenceValue{2.0}.boolean(), std::nullopt);
    EXPECT_EQ(PreferenceValue{-1.0}.boolean(), std::nullopt);
    EXPECT_EQ(PreferenceValue{0.5}.boolean(), std::nullopt);
    EXPECT_EQ(PreferenceValue{std::nan("")}.boolean(), std::nullopt);
}

TEST(PreferenceValue, textsAndAbsentValuesAreNeitherBooleanNorNumber) {
    EXPECT_EQ(PreferenceValue{}.boolean(), std::nullopt);
    EXPECT_EQ(PreferenceValue{}.number(), std::nullopt);
}

TEST(PreferenceValue, finiteNumbersAreNumbers) {
    EXPECT_EQ(PreferenceValue{1000.0}.number(), 1000.0);
    EXPECT_EQ(PreferenceValue{0.5}.number(), 0.5);
    EXPECT_EQ(PreferenceValue{-3.0}.number(), -3.0);
}

TEST(PreferenceValue, booleansAndWhatIsNotFiniteAreNoNumbers) {
    EXPECT_EQ(PreferenceValue{true}.number(), std::nullopt);
    EXPECT_EQ(PreferenceValue{std::nan("")}.number(), std::nullopt);
    EXPECT_EQ(PreferenceValue{std::numeric_limits<double>::infinity()}.number(), std::nullopt);
}

TEST(DisplayNumber, wholeNumbersOf32Bits) {
    EXPECT_EQ(displayNumber(69733382.0), 69733382U);
    EXPECT_EQ(displayNumber(0.0), 0U);
    EXPECT_EQ(displayNumber(4294967295.0), 4294967295U);
}

TEST(DisplayNumber, everythingElseIsZero) {
    EXPECT_EQ(displayNumber(std::nullopt), 0U);
    EXPECT_EQ(displayNumber(-1.0), 0U);
    EXPECT_EQ(displayNumber(1.5), 0U);
    EXPECT_EQ(displayNumber(4294967296.0), 0U);
    EXPECT_EQ(displayNumber(std::nan("")), 0U);
}

TEST(ApplicationPolicy, theDocumentedValues) {
    EXPECT_EQ(activationPolicy(0), ActivationPolicy::regular);
    EXPECT_EQ(activationPolicy(1), ActivationPolicy::accessory);
    EXPECT_EQ(activationPolicy(2), ActivationPolicy::prohibited);
}

TEST(ApplicationPolicy, unknownValuesStandInNoDock) {
    EXPECT_EQ(activationPolicy(3), ActivationPolicy::prohibited);
    EXPECT_EQ(activationPolicy(-1), ActivationPolicy::prohibited);
}

} // namespace
} // namespace quillary::test
