#include "platform/linux/SyslogLog.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

TEST(SyslogLog, breaksAndControlCharactersBecomeSpaces) {
    EXPECT_EQ(asLogLine("Quillary: a\nb\r\tc\x1b[0m\x7f"), "Quillary: a b  c [0m ");
    EXPECT_EQ(asLogLine("a\xc2\x85"
                        "b\xe2\x80\xa8"
                        "c\xe2\x80\xa9"),
              "a b c ");
    EXPECT_EQ(asLogLine(std::string("a\0b", 3)), "a b");
}

TEST(SyslogLog, textStays) {
    EXPECT_EQ(asLogLine("Quillary: gr\xc3\xbc\xc3\x9f"
                        "e %s %n"),
              "Quillary: gr\xc3\xbc\xc3\x9f"
              "e %s %n");
}

TEST(SyslogLog, malformedBytesBecomeSpaces) {
    EXPECT_EQ(asLogLine("a\xff"
                        "b\xc3"),
              "a b ");
}

TEST(SyslogLog, linesAreBoundedAtACharacter) {
    EXPECT_EQ(asLogLine(std::string(5000, 'a')).size(), 2048U);
    EXPECT_EQ(asLogLine(std::string(2047, 'a') + "\xc3\xbc").size(), 2047U);
}

TEST(SyslogLog, lineGoesToStandardError) {
    ::testing::internal::CaptureStderr();
    SyslogLog().write("Quillary: one\ntwo");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Quillary: one two\n");
}

} // namespace

} // namespace quillary::test
