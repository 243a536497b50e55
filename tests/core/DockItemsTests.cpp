#include "core/DockItems.h"
#include "core/Utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <set>

namespace quillary {

namespace {

using Paths = std::vector<std::string>;

constexpr std::ptrdiff_t largest = std::numeric_limits<std::ptrdiff_t>::max();
constexpr std::ptrdiff_t smallest = std::numeric_limits<std::ptrdiff_t>::min();

TEST(DockItems, addingDropsRepeatsAndMovesWhatIsThere) {
    EXPECT_EQ(DockItems::adding({"/a", "/a", "/b"}, {"/b", "/c"}, 2), (Paths{"/c", "/a", "/b"}));
}

TEST(DockItems, addingWithoutIndexAppends) {
    EXPECT_EQ(DockItems::adding({"/x", "/y"}, {"/a"}), (Paths{"/a", "/x", "/y"}));
    EXPECT_EQ(DockItems::adding({"/a"}, {"/a", "/b"}), (Paths{"/b", "/a"}));
}

TEST(DockItems, addingClampsTheIndex) {
    EXPECT_EQ(DockItems::adding({"/x"}, {"/a"}, 99), (Paths{"/a", "/x"}));
    EXPECT_EQ(DockItems::adding({"/x"}, {"/a"}, -5), (Paths{"/x", "/a"}));
    EXPECT_EQ(DockItems::adding({"/x"}, {"/a"}, largest), (Paths{"/a", "/x"}));
    EXPECT_EQ(DockItems::adding({"/x"}, {"/a"}, smallest), (Paths{"/x", "/a"}));
}

TEST(DockItems, addingKeepsTheBlockTogetherWhenItsPathsStandOnBothSides) {
    EXPECT_EQ(DockItems::adding({"/d", "/a"}, {"/a", "/b", "/c", "/d"}, 2), (Paths{"/b", "/d", "/a", "/c"}));
}

TEST(DockItems, addingRemovesOneOccurrenceOnly) {
    EXPECT_EQ(DockItems::adding({"/a"}, {"/a", "/b", "/a"}, 1), (Paths{"/a", "/b", "/a"}));
}

TEST(DockItems, addingNothingChangesNothing) {
    EXPECT_EQ(DockItems::adding({}, {"/a"}, 0), Paths{"/a"});
}

TEST(DockItems, addingDropsPathsThatAreNotUtf8) {
    EXPECT_EQ(DockItems::adding({"/\xff", "/\xc3\xa4"}, {"/a"}), (Paths{"/a", "/\xc3\xa4"}));
}

TEST(DockItems, movingBringsThePathToTheIndex) {
    const Paths items{"/a", "/b", "/c"};
    EXPECT_EQ(DockItems::moving(items, 0, 2), (Paths{"/b", "/c", "/a"}));
    EXPECT_EQ(DockItems::moving(items, 2, 0), (Paths{"/c", "/a", "/b"}));
    EXPECT_EQ(DockItems::moving(items, 0, 1), (Paths{"/b", "/a", "/c"}));
    EXPECT_EQ(DockItems::moving(items, 1, 0), (Paths{"/b", "/a", "/c"}));
}

TEST(DockItems, movingFromNowhereOrToTheSamePlaceChangesNothing) {
    const Paths items{"/a", "/b", "/c"};
    EXPECT_EQ(DockItems::moving(items, 3, 0), items);
    EXPECT_EQ(DockItems::moving(items, -1, 0), items);
    EXPECT_EQ(DockItems::moving(items, 1, 1), items);
    EXPECT_EQ(DockItems::moving({}, 0, 1), Paths{});
}

TEST(DockItems, movingClampsTheTarget) {
    const Paths items{"/a", "/b", "/c"};
    EXPECT_EQ(DockItems::moving(items, 0, 99), (Paths{"/b", "/c", "/a"}));
    EXPECT_EQ(DockItems::moving(items, 0, largest), (Paths{"/b", "/c", "/a"}));
    EXPECT_EQ(DockItems::moving(items, 2, -7), (Paths{"/c", "/a", "/b"}));
    EXPECT_EQ(DockItems::moving(items, 2, smallest), (Paths{"/c", "/a", "/b"}));
}

Paths randomPaths(std::mt19937& random, bool distinct) {
    Paths paths;
    const auto count = random() % 12;
    while (paths.size() < count) {
        std::string path = "/" + std::to_string(random() % 20);
        if (!distinct || std::ranges::find(paths, path) == paths.end()) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

TEST(DockItems, addingNeverLosesOrRepeatsAPath) {
    for (std::uint32_t seed = 0; seed < 5000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const Paths items = randomPaths(random, true);
        const Paths added = randomPaths(random, false);
        const auto index = static_cast<std::ptrdiff_t>(random() % 20) - 4;
        const Paths result = DockItems::adding(added, items, index);

        std::set<std::string> expected(items.begin(), items.end());
        expected.insert(added.begin(), added.end());
        ASSERT_EQ(std::set(result.begin(), result.end()), expected);
        ASSERT_EQ(result.size(), expected.size());
    }
}

TEST(DockItems, movingPutsThePathAtTheTargetAndKeepsTheOthersInOrder) {
    for (std::uint32_t seed = 0; seed < 5000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Paths items = randomPaths(random, true);
        items.emplace_back("/always");
        const auto count = std::ssize(items);
        const auto from = static_cast<std::ptrdiff_t>(random()) % count;
        const auto to = static_cast<std::ptrdiff_t>(random()) % count;
        Paths result = DockItems::moving(items, from, to);

        ASSERT_EQ(result.size(), items.size());
        ASSERT_EQ(result[static_cast<std::size_t>(to)], items[static_cast<std::size_t>(from)]);
        result.erase(result.begin() + to);
        items.erase(items.begin() + from);
        ASSERT_EQ(result, items);
    }
}

TEST(Utf8, wellFormedSequencesAreValid) {
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8("abc\x7f"));
    EXPECT_TRUE(isValidUtf8("\xc2\x80\xdf\xbf"));
    EXPECT_TRUE(isValidUtf8("\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf"));
    EXPECT_TRUE(isValidUtf8("\xf0\x90\x80\x80\xf4\x8f\xbf\xbf"));
    EXPECT_TRUE(isValidUtf8(std::string_view("\0a", 2)));
}

TEST(Utf8, illFormedSequencesAreNot) {
    for (const std::string_view bytes : {"\x80",
                                         "\xbf",
                                         "\xc0\x80",
                                         "\xc1\xbf",
                                         "\xc2",
                                         "\xc2\x7f",
                                         "\xc2\xc0",
                                         "\xe0\x9f\xbf",
                                         "\xe0\xa0",
                                         "\xe1\x80\x7f",
                                         "\xed\xa0\x80",
                                         "\xed\xbf\xbf",
                                         "\xf0\x8f\xbf\xbf",
                                         "\xf0\x90\x80",
                                         "\xf1\x80\x80\x7f",
                                         "\xf4\x90\x80\x80",
                                         "\xf5\x80\x80\x80",
                                         "\xfe",
                                         "\xff",
                                         "a\xc3"}) {
        EXPECT_FALSE(isValidUtf8(bytes)) << testing::PrintToString(bytes);
    }
}

} // namespace

} // namespace quillary
