#include "platform/linux/glib/KeyFile.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace quillary::test {

namespace {

using Strings = std::vector<std::string>;

class KeyFileTest : public WorldTest {
protected:
    const std::filesystem::path file = World::home() / "file";
};

TEST_F(KeyFileTest, valuesAreReadByGroupAndKey) {
    const auto keys =
        KeyFile::parse("[A]\nText=a\\sb\nText[de]=ä\nList=x;y\\;z;\nOn=true\n[B]\nText=other\n");
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->text("A", "Text"), "a b");
    EXPECT_EQ(keys->text("B", "Text"), "other");
    EXPECT_EQ(keys->localised("A", "Text"), "ä");
    EXPECT_EQ(keys->localised("B", "Text"), "other");
    EXPECT_EQ(keys->list("A", "List"), (Strings{"x", "y;z"}));
    EXPECT_TRUE(keys->flag("A", "On"));
    EXPECT_TRUE(keys->has("A", "On"));
}

TEST_F(KeyFileTest, whatIsMissingOrDamagedReadsAsEmpty) {
    const auto keys = KeyFile::parse("[A]\nBad=\xff\nOn=perhaps\n");
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->text("A", "Bad"), "");
    EXPECT_EQ(keys->text("A", "None"), "");
    EXPECT_EQ(keys->text("None", "Bad"), "");
    EXPECT_EQ(keys->localised("A", "None"), "");
    EXPECT_EQ(keys->list("A", "None"), Strings());
    EXPECT_FALSE(keys->flag("A", "On"));
    EXPECT_FALSE(keys->flag("A", "None"));
    EXPECT_FALSE(keys->has("A", "None"));
    EXPECT_FALSE(keys->has("None", "On"));
}

TEST_F(KeyFileTest, otherTextIsNoKeyFile) {
    EXPECT_FALSE(KeyFile::parse("no group"));
    EXPECT_FALSE(KeyFile::parse("key=before any group\n[A]\n"));
    EXPECT_FALSE(KeyFile::parse("[A]\nno sign of equality\n"));
    EXPECT_TRUE(KeyFile::parse(""));
}

TEST_F(KeyFileTest, aFileIsReadUpToTheLimit) {
    const std::string text = "[A]\nKey=value\n";
    writeFile(file, text);
    const auto keys = KeyFile::read(file, text.size());
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->text("A", "Key"), "value");
    EXPECT_FALSE(KeyFile::read(file, text.size() - 1));
}

TEST_F(KeyFileTest, whatIsNoRegularFileIsNotRead) {
    EXPECT_FALSE(KeyFile::read(file, 100));
    EXPECT_FALSE(KeyFile::read(World::home(), 100));
    EXPECT_FALSE(KeyFile::read("/dev/zero", 100));
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(KeyFile::read(file, 100));
}

} // namespace

} // namespace quillary::test
