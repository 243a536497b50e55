#include "platform/x11/X11Text.h"

#include <gtest/gtest.h>

namespace quillary {

TEST(X11Text, validUtf8StaysAsItIs) {
    EXPECT_EQ(X11Text::clean("Datei – Überblick"), "Datei – Überblick");
    EXPECT_EQ(X11Text::clean(""), "");
}

TEST(X11Text, otherBytesAreLatin1) {
    EXPECT_EQ(X11Text::clean("caf\xE9"), "café");
}

TEST(X11Text, endsAtTheFirstNul) {
    EXPECT_EQ(X11Text::clean(std::string_view("one\0two", 7)), "one");
}

TEST(X11Text, controlCharactersBecomeSpaces) {
    EXPECT_EQ(X11Text::clean("a\nb\x1B"
                             "c\x7F"),
              "a b c ");
}

TEST(X11Text, longTextsAreCutBetweenCharacters) {
    const std::string ascii(5000, 'x');
    EXPECT_EQ(X11Text::clean(ascii), std::string(1024, 'x'));
    std::string wide;
    for (int i = 0; i < 1000; ++i) {
        wide += "€";
    }
    const auto cut = X11Text::clean(wide);
    EXPECT_EQ(cut.size(), 1023U);
    EXPECT_EQ(cut.substr(1020), "€");
}

TEST(X11Text, latin1ThatGrowsIsCutToo) {
    const auto cut = X11Text::clean(std::string(1024, '\xE9'));
    EXPECT_LE(cut.size(), 1024U);
    EXPECT_EQ(cut.substr(0, 4), "éé");
    EXPECT_EQ(cut.size() % 2, 0U);
}

} // namespace quillary
