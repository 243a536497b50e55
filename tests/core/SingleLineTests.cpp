#include "core/SingleLine.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

std::string line(std::string_view text, std::size_t longest = 1000) {
    return singleLine(text, longest, "?");
}

TEST(SingleLine, everyControlCharacterAndLineBreakBecomesOneSpace) {
    for (int code = 0; code < 0x20; ++code) {
        EXPECT_EQ(line(std::string("a") + static_cast<char>(code) + "z"), "a z") << code;
    }
    EXPECT_EQ(line("a\x7Fz"), "a z");
    EXPECT_EQ(line("a\xC2\x80z\xC2\x9Fz"), "a z z");
    EXPECT_EQ(line("a\xE2\x80\xA8z\xE2\x80\xA9z"), "a z z");
}

TEST(SingleLine, theirNeighboursStay) {
    // U+0020, U+007E, U+00A0, U+00DF, U+2027 and U+202A.
    const std::string text = " ~\xC2\xA0\xC3\x9F\xE2\x80\xA7\xE2\x80\xAA";
    EXPECT_EQ(line(text), text);
}

TEST(SingleLine, everyMalformedByteIsReplaced) {
    EXPECT_EQ(line("a\xFF\xFEz\xC3"), "a??z?");
    // The beginning of a character, an overlong form and a surrogate.
    EXPECT_EQ(line("\xE2\x80z"), "??z");
    EXPECT_EQ(line("\xC0\xAF"), "??");
    EXPECT_EQ(line("\xED\xA0\x80"), "???");
}

TEST(SingleLine, itEndsAtAWholeCharacterWithinTheLimit) {
    EXPECT_EQ(line("abc\xC3\xBC", 5), "abc\xC3\xBC");
    EXPECT_EQ(line("abc\xC3\xBC", 4), "abc");
    EXPECT_EQ(line("abc", 0), "");
    EXPECT_EQ(singleLine("\xFF\xFF", 5, "\xEF\xBF\xBD"), "\xEF\xBF\xBD");
}

} // namespace

} // namespace quillary
