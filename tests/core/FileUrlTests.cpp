#include "core/FileUrl.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

TEST(FileUrl, givesThePathWithoutOneTrailingSlash) {
    EXPECT_EQ(pathOfFileUrl("file:///Applications/Some%20App.app/"), "/Applications/Some App.app");
    EXPECT_EQ(pathOfFileUrl("file:///a"), "/a");
    EXPECT_EQ(pathOfFileUrl("file:///a//"), "/a/");
    EXPECT_EQ(pathOfFileUrl("file:////a"), "//a");
    EXPECT_EQ(pathOfFileUrl("file:///a//b"), "/a//b");
    EXPECT_EQ(pathOfFileUrl("file:///"), "/");
    EXPECT_EQ(pathOfFileUrl("file:/"), "/");
    EXPECT_EQ(pathOfFileUrl("file:/a/b/"), "/a/b");
    EXPECT_EQ(pathOfFileUrl("file:///a/../b"), "/a/../b");
}

TEST(FileUrl, escapesAreDecodedOnce) {
    EXPECT_EQ(pathOfFileUrl("file:///%C3%A4%2fb%2525"), "/\xc3\xa4/b%25");
    EXPECT_EQ(pathOfFileUrl("file:///a+b"), "/a+b");
    EXPECT_EQ(pathOfFileUrl("file:///a%0D%0Ab%0Ac"), "/a\r\nb\nc");
}

TEST(FileUrl, thisHostIsAcceptedAndNoOther) {
    EXPECT_EQ(pathOfFileUrl("file://localhost/a"), "/a");
    EXPECT_EQ(pathOfFileUrl("FILE://LocalHost/a"), "/a");
    for (const char* url :
         {"file://elsewhere/a", "file://127.0.0.1/a", "file://[::1]/a", "file://localhost:80/a",
          "file://me@localhost/a", "file://me@/a", "file://:1/a", "file://localhost.evil/a"}) {
        EXPECT_EQ(pathOfFileUrl(url), std::nullopt) << url;
    }
}

TEST(FileUrl, queryAndFragmentAreNoPartOfThePath) {
    EXPECT_EQ(pathOfFileUrl("file:///a/?q#f"), "/a");
    EXPECT_EQ(pathOfFileUrl("file:///a%3Fq%23f"), "/a?q#f");
}

TEST(FileUrl, withoutAnAbsolutePathThereIsNothing) {
    for (const char* url :
         {"", "file", "file:", "file:a", "file:?q", "file:#f", "file://", "file://localhost", "//localhost/a",
          "/a", "a", "http:///a", "files:///a", "fil%65:///a"}) {
        EXPECT_EQ(pathOfFileUrl(url), std::nullopt) << url;
    }
}

TEST(FileUrl, textThatIsNoStrictUrlGivesNothing) {
    for (const char* url :
         {"file:///a b", " file:///a", "file:///a\n", "file:///\xc3\xa4", "file:///%", "file:///%4",
          "file:///%zz", "file:///a\\b", "file:///a[1]", "file:///a|b", "file:///<a>", "file:///\"a\"",
          "file:///{a}", "file:///a^b", "file:///a`b", "file:///a#b#c"}) {
        EXPECT_EQ(pathOfFileUrl(url), std::nullopt) << url;
    }
    EXPECT_EQ(pathOfFileUrl(std::string_view("file:///a\0b", 11)), std::nullopt);
}

TEST(FileUrl, pathsThatNoFileCanHaveGiveNothing) {
    EXPECT_EQ(pathOfFileUrl("file:///a%00b"), std::nullopt);
    EXPECT_EQ(pathOfFileUrl("file:///%00"), std::nullopt);
    EXPECT_EQ(pathOfFileUrl("file:///%FF"), std::nullopt);
    EXPECT_EQ(pathOfFileUrl("file:///%C3"), std::nullopt);
    EXPECT_EQ(pathOfFileUrl("file:///%ED%A0%80"), std::nullopt);
}

TEST(FileUrl, lengthIsBounded) {
    const std::string start = "file:///";
    EXPECT_EQ(pathOfFileUrl(start + std::string(16384 - 8, 'a')), "/" + std::string(16384 - 8, 'a'));
    EXPECT_EQ(pathOfFileUrl(start + std::string(16385 - 8, 'a')), std::nullopt);
    EXPECT_EQ(pathOfFileUrl(start + std::string(1'000'000, '/')), std::nullopt);
}

} // namespace

} // namespace quillary
