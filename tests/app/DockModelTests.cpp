#include "tests/app/Fixture.h"

namespace quillary::test {
namespace {

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";
const std::string safari = "/Applications/Safari.app";

class DockModelTest : public Desktop {
protected:
    [[nodiscard]] std::string cells() const {
        std::string text;
        for (const DockCell& cell : model().cells()) {
            text += cell.isItem() ? (cell.pinned ? "P" : "r") + cell.path.substr(cell.path.rfind('/')) : "|";
            text += " ";
        }
        return text;
    }
    [[nodiscard]] std::vector<std::string> items() const { return model().config().items; }
};

TEST_F(DockModelTest, pinnedThenSeparatorThenRunning) {
    startWith({mail});
    platform.workspace().launch(notes);
    EXPECT_EQ(cells(), "P/Mail.app | r/Notes.app ");
}

TEST_F(DockModelTest, noSeparatorWhenEitherGroupIsEmpty) {
    startWith({});
    platform.workspace().launch(notes);
    EXPECT_EQ(cells(), "r/Notes.app ");
    configure([](DockConfig& config) { config.items = {notes}; });
    EXPECT_EQ(cells(), "P/Notes.app ");
}

TEST_F(DockModelTest, aPinnedApplicationThatRunsStandsOnce) {
    startWith({mail, notes});
    platform.workspace().launch(notes);
    platform.workspace().launch(safari);
    EXPECT_EQ(cells(), "P/Mail.app P/Notes.app | r/Safari.app ");
}

TEST_F(DockModelTest, runningPathsAreNotDeduplicated) {
    startWith({mail});
    platform.workspace().launch(notes);
    platform.workspace().launch(notes);
    EXPECT_EQ(cells(), "P/Mail.app | r/Notes.app r/Notes.app ");
}

TEST_F(DockModelTest, runningApplicationsCanBeLeftOut) {
    startWith({mail});
    platform.workspace().launch(notes);
    configure([](DockConfig& config) { config.showRunning = false; });
    EXPECT_EQ(cells(), "P/Mail.app ");
}

TEST_F(DockModelTest, cellsAreIdentifiedByPathOrAsSeparator) {
    EXPECT_EQ(DockCell::item(mail, DockCell::Origin::pinned).id(), mail);
    EXPECT_EQ(DockCell::separator().id(), "separator");
    EXPECT_NE(DockCell::item(mail, DockCell::Origin::pinned),
              DockCell::item(mail, DockCell::Origin::running));
}

TEST_F(DockModelTest, enteringAndLeavingAreAnimatedMovingIsNot) {
    startWith({mail});
    std::vector<DockModel::Transition> transitions;
    QObject context;
    QObject::connect(&model(), &DockModel::mouseChanged, &context,
                     [&](DockModel::Transition transition) { transitions.push_back(transition); });
    model().setMouse(std::nullopt);
    model().setMouse(QPointF(10, 10));
    model().setMouse(QPointF(10, 10));
    model().setMouse(QPointF(11, 10));
    model().setMouse(std::nullopt);
    using enum DockModel::Transition;
    EXPECT_EQ(transitions, (std::vector{animated, immediate, animated}));
}

TEST_F(DockModelTest, everyAssignmentIsToldChangedOrNot) {
    startWith({mail});
    const Count config(&model(), &DockModel::configChanged);
    const Count hidden(&model(), &DockModel::hiddenChanged);
    const Count name(&model(), &DockModel::screenNameChanged);
    model().setConfig(model().config());
    model().setHidden(model().hidden());
    model().setScreenName(model().screenName());
    const Count memory(&model(), &DockModel::showMemoryChanged);
    const Count length(&model(), &DockModel::maxLengthChanged);
    model().setShowMemory(model().showMemory());
    model().setMaxLength(model().maxLength());
    EXPECT_EQ(memory.times, 1);
    EXPECT_EQ(length.times, 1);
    EXPECT_EQ(config.times, 1);
    EXPECT_EQ(hidden.times, 1);
    EXPECT_EQ(name.times, 1);
}

TEST_F(DockModelTest, hoveredPathIsTheItemUnderThePointerWith3PointsAtEachSide) {
    startWith({mail, notes});
    configure([](DockConfig& config) { config.magnification = Magnification::off; });
    EXPECT_EQ(model().hoveredPath(), std::nullopt);
    // Panel: 14 of slack, 8 of margin, then icons of 48 with gaps of 6.
    model().setMouse(QPointF(22 - 3, 60));
    EXPECT_EQ(model().hoveredPath(), mail);
    model().setMouse(QPointF(22 - 3.01, 60));
    EXPECT_EQ(model().hoveredPath(), std::nullopt);
    model().setMouse(QPointF(22 + 48 + 3.01, 60));
    EXPECT_EQ(model().hoveredPath(), notes);
}

TEST_F(DockModelTest, hoveringUsesTheOtherAxisAtTheSides) {
    startWith({mail, notes});
    configure([](DockConfig& config) {
        config.magnification = Magnification::off;
        config.edge = DockEdge::left;
    });
    model().setMouse(QPointF(60, 22 + 48 + 10));
    EXPECT_EQ(model().hoveredPath(), notes);
}

TEST_F(DockModelTest, theSeparatorIsNeverHovered) {
    startWith({mail});
    platform.workspace().launch(notes);
    configure([](DockConfig& config) { config.magnification = Magnification::off; });
    // 14 + 8 + 48 + 6: the separator's 13 points begin.
    model().setMouse(QPointF(76 + 6.5, 60));
    EXPECT_EQ(model().hoveredPath(), std::nullopt);
}

TEST_F(DockModelTest, hoveringFollowsTheMagnifiedPlaces) {
    startWith({mail, notes, safari});
    configure([](DockConfig& config) { config.magnification = Magnification::big; });
    const DockGeometry geometry = model().geometry(model().cells());
    // Right of the last icon at rest, but under it once it has grown.
    const double beyond = geometry.rowOffset() + geometry.restCenters[2] + 24 + 10;
    model().setMouse(QPointF(beyond, 100));
    EXPECT_EQ(model().hoveredPath(), safari);
}

TEST_F(DockModelTest, addingMovingAndRemovingGoThroughTheManagerAndAreSaved) {
    startWith({mail, notes});
    model().add({safari});
    EXPECT_EQ(items(), (std::vector<std::string>{mail, notes, safari}));
    model().add({notes}, 0);
    EXPECT_EQ(items(), (std::vector<std::string>{notes, mail, safari}));
    model().move(0, 2);
    EXPECT_EQ(items(), (std::vector<std::string>{mail, safari, notes}));
    model().remove(safari);
    EXPECT_EQ(items(), (std::vector<std::string>{mail, notes}));
    EXPECT_EQ(stored().docks[0].items, items());
}

TEST_F(DockModelTest, removingTakesEveryEqualEntry) {
    startWith({});
    configure([](DockConfig& config) { config.items = {mail, notes, mail}; });
    model().remove(mail);
    EXPECT_EQ(items(), std::vector<std::string>{notes});
}

TEST_F(DockModelTest, withoutAManagerChangesDoNothing) {
    startWith({mail});
    const auto orphan = manager->models()[0];
    manager.reset();
    orphan->add({notes});
    orphan->move(0, 1);
    orphan->remove(mail);
    EXPECT_EQ(orphan->config().items, std::vector<std::string>{mail});
}

TEST_F(DockModelTest, opensApplicationsAsSuchAndTheRestByDefaultApplication) {
    startWith({mail});
    model().open(mail);
    model().open("/home/me/letter.txt");
    EXPECT_EQ(platform.workspace().calls,
              (std::vector<std::string>{"openApplication " + mail, "open /home/me/letter.txt"}));
    EXPECT_EQ(model().bouncing().size(), 1U);
}

TEST_F(DockModelTest, bouncesFor6SecondsWhenNothingStarts) {
    startWith({mail});
    model().open(mail);
    EXPECT_TRUE(model().bouncing().contains(mail));
    platform.scheduler().advance(5.99);
    EXPECT_TRUE(model().bouncing().contains(mail));
    platform.scheduler().advance(0.01);
    EXPECT_FALSE(model().bouncing().contains(mail));
}

TEST_F(DockModelTest, furtherClicksDoNotProlongTheBouncing) {
    startWith({mail});
    model().open(mail);
    platform.scheduler().advance(4);
    model().open(mail);
    platform.scheduler().advance(1.99);
    EXPECT_TRUE(model().bouncing().contains(mail));
    platform.scheduler().advance(0.02);
    EXPECT_FALSE(model().bouncing().contains(mail));
}

TEST_F(DockModelTest, bouncesUntilTheApplicationRuns) {
    startWith({mail, notes});
    model().open(mail);
    model().open(notes);
    platform.workspace().launch(safari);
    EXPECT_EQ(model().bouncing().size(), 2U);
    platform.workspace().launch(mail);
    EXPECT_EQ(model().bouncing().size(), 1U);
    EXPECT_TRUE(model().bouncing().contains(notes));
}

TEST_F(DockModelTest, theLimitOfAnEarlierLaunchDoesNotEndALaterOne) {
    startWith({mail});
    model().open(mail);
    platform.workspace().launch(mail);
    platform.workspace().quit(mail);
    platform.scheduler().advance(5);
    model().open(mail);
    platform.scheduler().advance(2);
    EXPECT_TRUE(model().bouncing().contains(mail));
}

TEST_F(DockModelTest, launchingWhatRunsAlreadyDoesNotBounce) {
    startWith({mail});
    platform.workspace().launch(mail);
    model().open(mail);
    EXPECT_TRUE(model().bouncing().empty());
}

TEST_F(DockModelTest, bouncingCanBeSwitchedOff) {
    startWith({mail});
    configure([](DockConfig& config) { config.bounceOnLaunch = false; });
    model().open(mail);
    EXPECT_TRUE(model().bouncing().empty());
    EXPECT_EQ(platform.workspace().calls.size(), 1U);
}

TEST_F(DockModelTest, aModelThatIsGoneLeavesNoTimerBehind) {
    startWith({mail});
    model().open(mail);
    platform.screens().set({});
    manager.reset();
    EXPECT_EQ(platform.scheduler().pending(), 0U);
}

} // namespace
} // namespace quillary::test
