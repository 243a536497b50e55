#include "platform/linux/entries/EntryIndex.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

using Key = EntryIndex::Key;

DesktopEntry entry(const std::string& id, const std::string& program, std::size_t arguments = 0) {
    DesktopEntry result;
    result.id = id;
    result.path = "/usr/share/applications/" + id;
    result.name = id;
    result.program = program;
    result.arguments = arguments;
    return result;
}

std::string idOf(const DesktopEntry* found) {
    return found != nullptr ? found->id : "none";
}

TEST(EntryIndex, letterCaseMattersForPathsOnly) {
    const EntryIndex index({entry("Gimp.desktop", "gimp")});
    EXPECT_EQ(idOf(index.find(Key::id, "gimp")), "Gimp.desktop");
    EXPECT_EQ(idOf(index.find(Key::id, "GIMP.desktop")), "Gimp.desktop");
    EXPECT_EQ(idOf(index.find(Key::path, "/usr/share/applications/Gimp.desktop")), "Gimp.desktop");
    EXPECT_EQ(idOf(index.find(Key::path, "/usr/share/applications/gimp.desktop")), "none");
}

TEST(EntryIndex, exactSpellingStandsFirst) {
    const EntryIndex index({entry("Foo.desktop", "x"), entry("foo.desktop", "y")});
    EXPECT_EQ(idOf(index.find(Key::id, "foo")), "foo.desktop");
    EXPECT_EQ(idOf(index.find(Key::id, "Foo")), "Foo.desktop");
}

TEST(EntryIndex, entryNamedLikeTheProgramStandsFirst) {
    const EntryIndex index({entry("aaa.desktop", "thunar"), entry("thunar.desktop", "thunar", 3)});
    EXPECT_EQ(idOf(index.find(Key::program, "thunar")), "thunar.desktop");
}

TEST(EntryIndex, visibleStandsBeforeNoDisplay) {
    auto handler = entry("a.desktop", "code");
    handler.noDisplay = true;
    const EntryIndex index({handler, entry("b.desktop", "code", 2)});
    EXPECT_EQ(idOf(index.find(Key::program, "code")), "b.desktop");
}

TEST(EntryIndex, installedStandsBeforeMissingAndPlainBeforeSpecial) {
    auto missing = entry("a.desktop", "office");
    missing.tryExecMissing = true;
    const EntryIndex index({missing, entry("b.desktop", "office", 1), entry("c.desktop", "office")});
    EXPECT_EQ(idOf(index.find(Key::program, "office")), "c.desktop");
}

TEST(EntryIndex, sameRankIsDecidedByTheId) {
    const EntryIndex forwards({entry("a.desktop", "office"), entry("b.desktop", "office")});
    const EntryIndex backwards({entry("b.desktop", "office"), entry("a.desktop", "office")});
    EXPECT_EQ(idOf(forwards.find(Key::program, "office")), "a.desktop");
    EXPECT_EQ(idOf(backwards.find(Key::program, "office")), "a.desktop");
}

TEST(EntryIndex, emptyAndEndlessWordsFindNothing) {
    const EntryIndex index({entry("a.desktop", "")});
    EXPECT_EQ(index.find(Key::program, ""), nullptr);
    EXPECT_EQ(index.find(Key::id, ".desktop"), nullptr);
    EXPECT_EQ(index.find(Key::id, std::string(100000, 'a')), nullptr);
}

TEST(EntryIndex, tailsThatManyShareAreNone) {
    EXPECT_EQ(reverseDnsTail("org.gnome.Nautilus"), "Nautilus");
    EXPECT_EQ(reverseDnsTail("org.telegram.desktop"), "");
    EXPECT_EQ(reverseDnsTail("com.example.App"), "");
    EXPECT_EQ(reverseDnsTail("python3.11"), "");
    EXPECT_EQ(reverseDnsTail("nautilus"), "");
    EXPECT_EQ(reverseDnsTail("nautilus."), "");
    EXPECT_EQ(reverseDnsTail(".hidden"), "");
}

TEST(EntryIndex, webAppIdsHave32LettersFromAToP) {
    EXPECT_EQ(webAppId("chrome-aghbiahbpaijignceidepookljebhfak-Default"),
              "aghbiahbpaijignceidepookljebhfak");
    EXPECT_EQ(webAppId("chrome-aghbiahbpaijignceidepookljebhfaz-Default"), "");
    EXPECT_EQ(webAppId("google-chrome"), "");
}

} // namespace

} // namespace quillary::test
