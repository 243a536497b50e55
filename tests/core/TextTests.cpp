#include "core/AsciiText.h"
#include "core/Paths.h"
#include "tests/core/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillary {

TEST(AsciiText, onlyAsciiLettersAreLowered) {
    EXPECT_EQ(lowered("AZaz09@[`{Ä"), "azaz09@[`{Ä");
    EXPECT_TRUE(equalIgnoringCase("LocalHost", "localhost"));
    EXPECT_FALSE(equalIgnoringCase("Ä", "ä"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
}

TEST(Paths, theBaseNameIsBehindTheLastSlash) {
    EXPECT_EQ(baseName("/usr/bin/env"), "env");
    EXPECT_EQ(baseName("env"), "env");
    EXPECT_EQ(baseName("/usr/bin/"), "");
    EXPECT_EQ(baseName(""), "");
}

TEST(Paths, slashesAtTheEndAreLeftOut) {
    EXPECT_EQ(withoutTrailingSlashes("/srv/data//"), "/srv/data");
    EXPECT_EQ(withoutTrailingSlashes("/srv"), "/srv");
    EXPECT_EQ(withoutTrailingSlashes("///"), "/");
    EXPECT_EQ(withoutTrailingSlashes(""), "");
}

TEST(Paths, aLinkToAFolderIsOne) {
    const test::TemporaryFolder folder;
    test::writeFile(folder.path() / "file", "x");
    std::filesystem::create_directory_symlink(folder.path(), folder.path() / "link");
    EXPECT_TRUE(isFolder(folder.path()));
    EXPECT_TRUE(isFolder(folder.path() / "link"));
    EXPECT_FALSE(isFolder(folder.path() / "file"));
    EXPECT_FALSE(isFolder(folder.path() / "none"));
    EXPECT_FALSE(isFolder(""));
}

} // namespace quillary
