#include "platform/linux/memory/BusyProcesses.h"
#include "platform/linux/memory/FootprintEstimate.h"
#include "platform/linux/memory/ReadingBudget.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

FootprintEstimate read(std::uint64_t resident, std::uint64_t exact) {
    FootprintEstimate estimate;
    estimate.setResident(resident);
    estimate.setExact(exact, 100, 0);
    return estimate;
}

TEST(FootprintEstimate, isTheCheapFigureUntilTheExactOneIsKnown) {
    FootprintEstimate estimate;
    EXPECT_EQ(estimate.bytes(), 0U);
    estimate.setResident(1000);
    EXPECT_EQ(estimate.bytes(), 1000U);
    estimate.setExact(700, 1, 0);
    EXPECT_EQ(estimate.bytes(), 700U);
}

TEST(FootprintEstimate, growthIsTheProcesssOwn) {
    auto estimate = read(1000, 700);
    estimate.setResident(1500);
    EXPECT_EQ(estimate.bytes(), 1200U);
}

TEST(FootprintEstimate, whatAProcessGivesUpWasItsOwn) {
    auto estimate = read(1000, 700);
    estimate.setResident(500);
    EXPECT_EQ(estimate.bytes(), 200U);
    estimate.setResident(300);
    EXPECT_EQ(estimate.bytes(), 0U);
    estimate.setResident(0);
    EXPECT_EQ(estimate.bytes(), 0U);
}

TEST(FootprintEstimate, ofAProcessThatNobodyMayReadTheCheapFigureStands) {
    FootprintEstimate estimate;
    estimate.setResident(1000);
    estimate.setExact(std::nullopt, 100, 0);
    estimate.setResident(800);
    EXPECT_EQ(estimate.bytes(), 800U);
    EXPECT_EQ(estimate.doubt(100, 0), 200.0);
}

TEST(FootprintEstimate, doubtGrowsWithChangeAndTime) {
    FootprintEstimate estimate;
    estimate.setResident(1000);
    EXPECT_EQ(estimate.doubt(5000, 0), 1000.0);
    estimate.setExact(700, 100, 0);
    EXPECT_EQ(estimate.doubt(100, 0), 0.0);
    EXPECT_EQ(estimate.doubt(220, 0), 100.0);
    estimate.setResident(600);
    EXPECT_EQ(estimate.doubt(160, 0), 430.0);
    EXPECT_EQ(estimate.doubt(50, 0), 400.0);
}

TEST(FootprintEstimate, whatOthersOfItsFamilyDoIsDoubtfulAsFarAsItShares) {
    FootprintEstimate estimate;
    estimate.setResident(1000);
    estimate.setExact(700, 100, 5000);
    EXPECT_EQ(estimate.doubt(100, 5000), 0.0);
    EXPECT_EQ(estimate.doubt(100, 5200), 200.0);
    EXPECT_EQ(estimate.doubt(100, 9999), 300.0);
    estimate.setExact(1200, 100, 0);
    EXPECT_EQ(estimate.doubt(100, 9999), 0.0);
}

TEST(ReadingBudget, theFirstSampleMaySpendFortyMilliseconds) {
    ReadingBudget budget;
    EXPECT_FALSE(budget.isLeft());
    budget.begin(1000);
    budget.takeNecessary(5);
    budget.take(0.039);
    EXPECT_TRUE(budget.isLeft());
    budget.take(0.002);
    EXPECT_FALSE(budget.isLeft());
}

TEST(ReadingBudget, aDebtIsPaidBackAtFifteenTenThousandthsOfTheTime) {
    ReadingBudget budget;
    budget.begin(0);
    budget.take(0.055);
    budget.begin(8);
    EXPECT_FALSE(budget.isLeft());
    budget.begin(12);
    EXPECT_TRUE(budget.isLeft());
}

TEST(ReadingBudget, cheapReadingsComeFirst) {
    ReadingBudget budget;
    budget.begin(0);
    budget.take(0.040);
    budget.begin(4);
    budget.takeNecessary(0.004);
    EXPECT_TRUE(budget.isLeft());
    budget.take(0.0021);
    EXPECT_FALSE(budget.isLeft());
}

TEST(ReadingBudget, aTenthIsLeftHoweverMuchTheCheapReadingsTake) {
    ReadingBudget budget;
    budget.begin(0);
    budget.take(0.040);
    budget.begin(4);
    budget.takeNecessary(10);
    EXPECT_TRUE(budget.isLeft());
    budget.take(0.00061);
    EXPECT_FALSE(budget.isLeft());
}

TEST(ReadingBudget, aLongPauseSavesNoMoreThanTheFirstSampleHas) {
    ReadingBudget budget;
    budget.begin(0);
    budget.begin(100000);
    budget.take(0.041);
    EXPECT_FALSE(budget.isLeft());
    budget.begin(99999);
    EXPECT_FALSE(budget.isLeft());
}

TEST(BusyProcesses, aProcessIsReadByOneAtATime) {
    BusyProcesses busy;
    bool other = false;
    bool again = false;
    EXPECT_TRUE(busy.tryReading({7, 1}, [&] {
        other = busy.tryReading({7, 2}, [] {});
        again = busy.tryReading({7, 1}, [] {});
    }));
    EXPECT_TRUE(other);
    EXPECT_FALSE(again);
    EXPECT_TRUE(busy.tryReading({7, 1}, [] {}));
}

} // namespace

} // namespace quillary::test
