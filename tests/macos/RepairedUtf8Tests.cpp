#include "core/RepairedUtf8.h"

#include <gtest/gtest.h>

namespace quillary::test {
namespace {

TEST(RepairedUtf8, wellFormedTextStaysAsItIs) {
    EXPECT_EQ(repairedUtf8(""), "");
    EXPECT_EQ(repairedUtf8("/Applications/Entwürfe 🚢.app"), "/Applications/Entwürfe 🚢.app");
    EXPECT_EQ(repairedUtf8("\xEF\xBF\xBD"), "\xEF\xBF\xBD");
}

TEST(RepairedUtf8, aStrayByteIsReplacedAlone) {
    EXPECT_EQ(repairedUtf8("a\xFFz"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(repairedUtf8("\x80\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

// The standard's own example of maximal subparts.
TEST(RepairedUtf8, oneReplacementForEachMaximalPart) {
    EXPECT_EQ(repairedUtf8("\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64"),
              "a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd");
}

TEST(RepairedUtf8, noPartOfWhatCanNeverBeWellFormedIsKept) {
    // An overlong form, a surrogate, and a code point above the last one.
    EXPECT_EQ(repairedUtf8("\xC0\xAF"), "\uFFFD\uFFFD");
    EXPECT_EQ(repairedUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(repairedUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(RepairedUtf8, aSequenceCutShortAtTheEnd) {
    EXPECT_EQ(repairedUtf8("a\xE2\x82"), "a\uFFFD");
    EXPECT_EQ(repairedUtf8("a\xF0\x9F\x9A"), "a\uFFFD");
}

} // namespace
} // namespace quillary::test
