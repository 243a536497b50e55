#include "app/DockMenu.h"
#include "tests/app/Fixture.h"
#include "tests/app/MenuText.h"

#include <gmock/gmock.h>

namespace quillary::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
using Lines = std::vector<std::string>;

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";
constexpr std::uint64_t mebibyte = std::uint64_t{1} << 20;

/// One dock with Mail and Notes at the bottom of LEFT, no magnification: Notes' centre is at 667.
class DockMenuTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
        turn();
    }
    Menu menu() const { return panel().buildMenu(); }
    void pointAtNotes() { platform.pointer().moveTo(QPointF(665, 860)); }
    void pointNowhere() { platform.pointer().moveTo(QPointF(640, 300)); }
    const std::vector<std::string>& asked() { return platform.workspace().calls; }
};

TEST_F(DockMenuTest, withoutAnItemUnderThePointerItStartsWithPosition) {
    EXPECT_EQ(lines(menu()),
              (Lines{"Position >", "  ✓ Bottom", "  Left", "  Right", "  Top", "Style >", "  ✓ Glass",
                     "  Pill", "  Bubbles", "  Minimal", "  Shelf", "Magnification >", "  ✓ Off", "  Subtle",
                     "  Big", "Auto-hide", "✓ Show Running Apps", "-", "Settings…"}));
}

Lines itemPart(const Menu& menu) {
    Lines all = lines(menu);
    all.erase(std::ranges::find(all, "Position >"), all.end());
    return all;
}

TEST_F(DockMenuTest, anItemUnderThePointerComesFirst) {
    pointAtNotes();
    EXPECT_THAT(itemPart(menu()), ElementsAre("Open Notes", "Remove from Dock", "Show in Finder", "-"));
}

TEST_F(DockMenuTest, aRunningApplicationThatIsNotPinnedCanBeKept) {
    configure([](DockConfig& config) { config.items = {mail}; });
    platform.workspace().launch(notes);
    turn();
    platform.pointer().moveTo(QPointF(665, 860));
    ASSERT_THAT(itemPart(menu()),
                ElementsAre("Open Notes", "Keep in Dock", "Show in Finder", "-", "Quit Notes", "-"));
    ASSERT_TRUE(choose(menu(), {"Keep in Dock"}));
    EXPECT_THAT(stored().dock(leftKey)->items, ElementsAre(mail, notes));
}

TEST_F(DockMenuTest, quitIsOfferedOnlyForWhatRuns) {
    platform.workspace().launch(notes);
    turn();
    pointAtNotes();
    EXPECT_THAT(itemPart(menu()),
                ElementsAre("Open Notes", "Remove from Dock", "Show in Finder", "-", "Quit Notes", "-"));
    ASSERT_TRUE(choose(menu(), {"Quit Notes"}));
    EXPECT_THAT(asked(), ElementsAre("terminate " + notes));
    platform.workspace().quit(notes);
    EXPECT_THAT(lines(menu()), Not(Contains("Quit Notes")));
}

TEST_F(DockMenuTest, theMemoryFigureStandsThereOnlyWhenItIsShownAndKnown) {
    platform.workspace().launch(notes);
    turn();
    pointAtNotes();
    EXPECT_THAT(lines(menu()), Contains("Quit Notes"));
    manager->memory->publish({}, {{notes, 512 * mebibyte}});
    EXPECT_THAT(lines(menu()), Contains("Quit Notes — frees 512 MB"));
    manager->memory->publish({}, {{mail, 512 * mebibyte}});
    EXPECT_THAT(lines(menu()), Contains("Quit Notes"));
    manager->memory->publish({}, {{notes, 1536 * mebibyte}});
    EXPECT_THAT(lines(menu()), Contains("Quit Notes — frees 1.5 GB"));
    // The choice still ends the right one.
    ASSERT_TRUE(choose(menu(), {"Quit Notes — frees 1.5 GB"}));
    EXPECT_THAT(asked(), ElementsAre("terminate " + notes));
    // A figure that is still there is not shown on a dock whose memory display is off.
    model().setShowMemory(false);
    EXPECT_THAT(lines(menu()), Contains("Quit Notes"));
}

TEST_F(DockMenuTest, openRevealAndRemoveWorkOnTheItemTheMenuWasOpenedOn) {
    pointAtNotes();
    const Menu opened = menu();
    pointNowhere();
    ASSERT_TRUE(choose(opened, {"Open Notes"}));
    ASSERT_TRUE(choose(opened, {"Show in Finder"}));
    EXPECT_THAT(asked(), ElementsAre("openApplication " + notes, "reveal " + notes));
    EXPECT_TRUE(model().bouncing().contains(notes));
    ASSERT_TRUE(choose(opened, {"Remove from Dock"}));
    EXPECT_THAT(stored().dock(leftKey)->items, ElementsAre(mail));
}

TEST_F(DockMenuTest, everyChoiceIsSavedAndMovesTheLiveDock) {
    ASSERT_TRUE(choose(menu(), {"Position", "Left"}));
    EXPECT_EQ(stored().dock(leftKey)->edge, DockEdge::left);
    turn();
    EXPECT_EQ(window().placed.left(), 0);
    ASSERT_TRUE(choose(menu(), {"Style", "Shelf"}));
    EXPECT_EQ(stored().dock(leftKey)->style, DockStyle::shelf);
    const int narrow = window().placed.width();
    ASSERT_TRUE(choose(menu(), {"Magnification", "Big"}));
    EXPECT_EQ(stored().dock(leftKey)->magnification, Magnification::big);
    turn();
    EXPECT_GT(window().placed.width(), narrow);
    EXPECT_THAT(lines(menu()), IsSupersetOf({"  ✓ Left", "  ✓ Shelf", "  ✓ Big", "  Bottom", "  Glass"}));
}

TEST_F(DockMenuTest, togglesInvertWhatHoldsWhenTheyAreChosen) {
    const Menu opened = menu();
    ASSERT_TRUE(choose(opened, {"Auto-hide"}));
    EXPECT_TRUE(stored().dock(leftKey)->autoHide);
    EXPECT_TRUE(model().hidden());
    EXPECT_THAT(lines(menu()), Contains("✓ Auto-hide"));
    ASSERT_TRUE(choose(opened, {"Auto-hide"}));
    EXPECT_FALSE(model().hidden());
    ASSERT_TRUE(choose(opened, {"Show Running Apps"}));
    EXPECT_FALSE(stored().dock(leftKey)->showRunning);
    EXPECT_THAT(lines(menu()), Contains("Show Running Apps"));
}

TEST_F(DockMenuTest, settingsAreRequestedOfTheManager) {
    const Count requests(manager.get(), &DockManager::settingsRequested);
    ASSERT_TRUE(choose(menu(), {"Settings…"}));
    EXPECT_EQ(requests.times, 1);
}

TEST_F(DockMenuTest, entriesOfADockThatHasGoneDoNothing) {
    pointAtNotes();
    const Menu opened = menu();
    platform.screens().set({});
    for (const auto& titles :
         {Lines{"Open Notes"}, Lines{"Remove from Dock"}, Lines{"Auto-hide"}, Lines{"Position", "Left"}}) {
        EXPECT_TRUE(choose(opened, titles));
    }
    EXPECT_TRUE(asked().empty());
    EXPECT_THAT(stored().dock(leftKey)->items, ElementsAre(mail, notes));
}

} // namespace
} // namespace quillary::test
