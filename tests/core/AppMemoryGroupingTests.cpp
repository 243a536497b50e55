#include "core/AppMemoryGrouping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Samples = std::vector<ProcessSample>;

constexpr std::uint64_t mebibyte = 1'048'576;
constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

std::vector<std::string> namesOf(const std::vector<AppUsage>& usages) {
    std::vector<std::string> names;
    names.reserve(usages.size());
    for (const auto& usage : usages) {
        names.push_back(usage.name);
    }
    return names;
}

TEST(AppMemoryGrouping, helpersBelongToTheOutermostBundle) {
    const Samples samples{
        {10, "/Applications/Foo.app/Contents/MacOS/Foo", 300 * mebibyte},
        {11, "/Applications/Foo.app/Contents/Frameworks/Foo Helper.app/Contents/MacOS/Foo Helper",
         200 * mebibyte}};
    EXPECT_THAT(AppMemoryGrouping::group(samples),
                ElementsAre(AppUsage{"/Applications/Foo.app", "Foo", {10, 11}, 500 * mebibyte}));
}

TEST(AppMemoryGrouping, bundleEndsAtTheFirstApp) {
    EXPECT_EQ(AppMemoryGrouping::bundle("/Applications/Xcode.app/Contents/Developer/Applications/"
                                        "Simulator.app/Contents/MacOS/Simulator"),
              "/Applications/Xcode.app");
    EXPECT_EQ(AppMemoryGrouping::bundle("/Applications/Bar.app"), "/Applications/Bar.app");
    EXPECT_EQ(AppMemoryGrouping::bundle("/usr/bin/top"), std::nullopt);
    EXPECT_EQ(AppMemoryGrouping::bundle("/a/b.apple/c"), std::nullopt);
    EXPECT_EQ(AppMemoryGrouping::bundle("/a/b.APP/c"), std::nullopt);
    EXPECT_EQ(AppMemoryGrouping::bundle(""), std::nullopt);
}

TEST(AppMemoryGrouping, userApplicationsLieBelowApplications) {
    EXPECT_TRUE(AppMemoryGrouping::isUserApp("/Applications/Mail.app"));
    EXPECT_TRUE(AppMemoryGrouping::isUserApp("/System/Applications/Mail.app"));
    EXPECT_TRUE(AppMemoryGrouping::isUserApp("/Users/me/Applications/Mail.app"));
    EXPECT_FALSE(AppMemoryGrouping::isUserApp("/Users/me/Downloads/Tool.app"));
    EXPECT_FALSE(AppMemoryGrouping::isUserApp("/Library/Apple/Applications/X.app"));
    EXPECT_FALSE(AppMemoryGrouping::isUserApp("/System/Library/Frameworks/F/Applications/Y.app"));
    EXPECT_FALSE(AppMemoryGrouping::isUserApp("/System/Library/CoreServices/Dock.app"));
}

TEST(AppMemoryGrouping, otherBundlesAndOtherProgramsAreLeftOut) {
    const Samples samples{{1, "/Users/me/Downloads/Tool.app/Contents/MacOS/Tool", 5},
                          {2, "/Library/Apple/System/Library/X.app/Contents/MacOS/X", 5},
                          {3, "/System/Library/Frameworks/F/Applications/Y.app/Contents/MacOS/Y", 5},
                          {4, "/usr/bin/top", 5},
                          {5, "", 5}};
    EXPECT_THAT(AppMemoryGrouping::group(samples), IsEmpty());
}

TEST(AppMemoryGrouping, emptySamplesCountForNothing) {
    const Samples samples{{10, "/Applications/Foo.app/Contents/MacOS/Foo", 0},
                          {11, "/Applications/Bar.app/Contents/MacOS/Bar", 0},
                          {12, "/Applications/Bar.app/Contents/MacOS/Bar", 7}};
    EXPECT_THAT(AppMemoryGrouping::group(samples),
                ElementsAre(AppUsage{"/Applications/Bar.app", "Bar", {12}, 7}));
    EXPECT_THAT(AppMemoryGrouping::group({}), IsEmpty());
}

TEST(AppMemoryGrouping, excludedBundleIsLeftOutWithAllInsideIt) {
    const Samples samples{
        {1, "/Applications/Quillary.app/Contents/MacOS/Quillary", 5},
        {2, "/Applications/Quillary.app/Contents/Library/Helper.app/Contents/MacOS/Helper", 5},
        {3, "/Applications/Quillary.apple.app/Contents/MacOS/Other", 5}};
    EXPECT_THAT(namesOf(AppMemoryGrouping::group(samples, "/Applications/Quillary.app")),
                ElementsAre("Quillary.apple"));
    EXPECT_THAT(namesOf(AppMemoryGrouping::group(samples, "/Applications/quillary.app")),
                ElementsAre("Quillary", "Quillary.apple"));
}

TEST(AppMemoryGrouping, ordersBySizeThenByName) {
    const Samples samples{{1, "/Applications/beta.app/beta", 5},
                          {2, "/Applications/Zed.app/Zed", 3},
                          {3, "/Applications/Alpha.app/Alpha", 5},
                          {4, "/Applications/alpha.app/alpha", 3},
                          {5, "/Applications/Small.app/Small", 1}};
    EXPECT_THAT(namesOf(AppMemoryGrouping::group(samples)),
                ElementsAre("Alpha", "beta", "Zed", "alpha", "Small"));
}

TEST(AppMemoryGrouping, equalSizesAndNamesKeepTheOrderOfAppearance) {
    const Samples samples{{1, "/z/Applications/Same.app/Same", 4},
                          {2, "/a/Applications/Same.app/Same", 1},
                          {3, "/m/Applications/Same.app/Same", 4},
                          {4, "/a/Applications/Same.app/Same", 3}};
    EXPECT_THAT(AppMemoryGrouping::group(samples),
                ElementsAre(AppUsage{"/z/Applications/Same.app", "Same", {1}, 4},
                            AppUsage{"/a/Applications/Same.app", "Same", {2, 4}, 4},
                            AppUsage{"/m/Applications/Same.app", "Same", {3}, 4}));
}

TEST(AppMemoryGrouping, sumTakesPathsAsTheyAre) {
    const Samples samples{{7, "/usr/share/applications/org.gnome.Maps.desktop", 2},
                          {8, "/usr/share/applications/quillary.desktop", 9},
                          {9, "/usr/share/applications/org.gnome.Maps.desktop", 3},
                          {6, "/usr/share/applications/xterm.desktop", 0}};
    EXPECT_THAT(
        AppMemoryGrouping::sum(samples, "/usr/share/applications/quillary.desktop"),
        ElementsAre(AppUsage{"/usr/share/applications/org.gnome.Maps.desktop", "org.gnome.Maps", {7, 9}, 5}));
}

TEST(AppMemoryGroupingDeathTest, overflowStopsTheProgram) {
    const Samples fits{{1, "/a", most - 1}, {2, "/a", 1}};
    EXPECT_EQ(AppMemoryGrouping::sum(fits).front().bytes, most);
    const Samples tooMuch{{1, "/a", most}, {2, "/a", 1}};
    EXPECT_DEATH(static_cast<void>(AppMemoryGrouping::sum(tooMuch)), "Quillary: .*overflow");
}

TEST(AppUsage, megabytesAreRoundedDown) {
    EXPECT_EQ((AppUsage{.id = {}, .name = {}, .pids = {}, .bytes = 1'048'575}.megabytes()), 0U);
    EXPECT_EQ((AppUsage{.id = {}, .name = {}, .pids = {}, .bytes = 1'572'864}.megabytes()), 1U);
}

} // namespace

} // namespace quillary
