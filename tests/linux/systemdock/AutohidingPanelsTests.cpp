#include "platform/linux/systemdock/AutohidingPanels.h"
#include "tests/core/Succeeded.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/systemdock/HiderRun.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

using Lines = std::vector<std::string>;

/// A desktop with panels in the modes "never", "dodge" and "always"; "never" is the default.
struct Desktop {
    SavedValues panels;
    std::string readError;
    std::string writeError;
    int reads = 0;
    int writes = 0;
};

class FakePanels final : public PanelModes {
public:
    explicit FakePanels(Desktop& desktop) : m_desktop(desktop) {}

    [[nodiscard]] std::string name() const override { return "the panels"; }
    [[nodiscard]] Result<SavedValues> read() override {
        ++m_desktop.reads;
        if (!m_desktop.readError.empty()) {
            return Failure(m_desktop.readError);
        }
        return m_desktop.panels;
    }
    [[nodiscard]] Result<> write(const SavedValues& panels) override {
        ++m_desktop.writes;
        if (!m_desktop.writeError.empty()) {
            return Failure(m_desktop.writeError);
        }
        for (const auto& [id, mode] : panels) {
            m_desktop.panels[id] = mode;
        }
        return {};
    }
    [[nodiscard]] bool isAway(const std::optional<std::string>& mode) const override {
        return mode == "always";
    }
    [[nodiscard]] std::string awayFrom(const std::optional<std::string>& /*mode*/) const override {
        return "always";
    }
    [[nodiscard]] std::optional<std::string> shown() const override { return std::nullopt; }
    [[nodiscard]] bool isMode(const std::string& text) const override {
        return text == "never" || text == "dodge" || text == "always";
    }

private:
    Desktop& m_desktop;
};

class AutohidingPanelsTest : public WorldTest {
protected:
    [[nodiscard]] AutohidingPanels newDock() {
        return {std::make_unique<FakePanels>(desktop), SavedValuesFile(path), log};
    }
    [[nodiscard]] bool isPutAside() const { return std::filesystem::exists(path); }

    const std::filesystem::path path = World::config() / "Quillary/system-dock.json";
    Desktop desktop{.panels = {{"1", std::nullopt}, {"2", "dodge"}}, .readError = {}, .writeError = {}};
    LinesLog log;
    AutohidingPanels dock = newDock();
    HiderRun run{dock};
    const SavedValues allAway{{"1", "always"}, {"2", "always"}};
};

TEST_F(AutohidingPanelsTest, hidesAndBringsBackToTheLetter) {
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(desktop.panels, allAway);
    EXPECT_TRUE(isPutAside());
    EXPECT_EQ(dock.read(), away);

    EXPECT_EQ(run.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(run.remembered(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
    EXPECT_FALSE(isPutAside());
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(AutohidingPanelsTest, untouchedPanelsReadAsAbsentValues) {
    desktop.panels = {{"1", std::nullopt}, {"2", std::nullopt}};
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(run.show(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", std::nullopt}}));
}

TEST_F(AutohidingPanelsTest, panelsThatTheirUserKeepsAwayStayAway) {
    desktop.panels = allAway;
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{true, std::nullopt}));
    EXPECT_EQ(dock.read(), away);
    EXPECT_EQ(run.show(), (DockPrefs{true, std::nullopt}));
    EXPECT_EQ(desktop.panels, allAway);
    EXPECT_EQ(dock.read(), (DockPrefs{true, std::nullopt}));
}

TEST_F(AutohidingPanelsTest, aStartAfterACrashKeepsWhatWasPutAside) {
    run.hide();
    auto next = newDock();
    HiderRun later(next, run.remembered());
    EXPECT_EQ(later.hide(), nothing);
    EXPECT_EQ(later.remembered(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(later.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, aStartAfterACrashWithForgottenSettingsBringsBackNonetheless) {
    run.hide();
    auto next = newDock();
    HiderRun later(next);
    EXPECT_EQ(later.show(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, aCrashBeforeThePanelsWereHiddenLeavesNothingBehind) {
    ASSERT_TRUE(succeeded(SavedValuesFile(path).store({{"1", "never"}, {"2", "dodge"}})));
    HiderRun later(dock, DockPrefs{false, std::nullopt});
    EXPECT_EQ(later.show(), nothing);
    EXPECT_FALSE(isPutAside());
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, aPanelThatIsAwayOfItselfDoesNotMakeTheOthersHidden) {
    desktop.panels = {{"1", "never"}, {"2", "always"}};
    ASSERT_TRUE(succeeded(SavedValuesFile(path).store(desktop.panels)));
    EXPECT_EQ(dock.read(), (DockPrefs{false, std::nullopt}));
}

TEST_F(AutohidingPanelsTest, panelsChangedByHandAreLeftAloneAndTheOldValuesForgotten) {
    run.hide();
    desktop.panels = {{"1", "dodge"}, {"2", "never"}};
    EXPECT_EQ(run.show(), nothing);
    EXPECT_EQ(run.remembered(), nothing);
    EXPECT_FALSE(isPutAside());

    // Later the user hides them himself, which is not the program's hiding.
    desktop.panels = allAway;
    EXPECT_EQ(dock.read(), (DockPrefs{true, std::nullopt}));
    EXPECT_EQ(run.show(), nothing);
    EXPECT_EQ(desktop.panels, allAway);
}

TEST_F(AutohidingPanelsTest, onePanelChangedByHandIsLeftAloneAndTheOtherComesBack) {
    run.hide();
    desktop.panels["1"] = "dodge";
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", "dodge"}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, aPanelAddedMeanwhileIsLeftAlone) {
    run.hide();
    desktop.panels["3"] = "never";
    EXPECT_EQ(dock.read(), away);
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}, {"3", "never"}}));
}

TEST_F(AutohidingPanelsTest, aPanelRemovedMeanwhileIsNotMadeAgain) {
    run.hide();
    desktop.panels.erase("2");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}}));
    EXPECT_FALSE(isPutAside());
}

TEST_F(AutohidingPanelsTest, hidingAgainKeepsTheUsersValuesAndTakesNewPanelsIn) {
    run.hide();
    desktop.panels["3"] = "never";
    dock.write(away);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", "always"}, {"2", "always"}, {"3", "always"}}));
    run.show();
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}, {"3", "never"}}));
}

TEST_F(AutohidingPanelsTest, damagedValuesBringThePanelsBackInTheDesktopsDefault) {
    run.hide();
    writeFile(path, "{\"version\":1,");
    EXPECT_EQ(dock.read(), away);
    EXPECT_EQ(run.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", std::nullopt}}));
    EXPECT_FALSE(isPutAside());
}

TEST_F(AutohidingPanelsTest, damagedValuesLeavePanelsAwayWhoseUserWantsThat) {
    desktop.panels = allAway;
    run.hide();
    writeFile(path, "");
    EXPECT_EQ(run.show(), (DockPrefs{true, std::nullopt}));
    EXPECT_EQ(desktop.panels, allAway);
}

TEST_F(AutohidingPanelsTest, hostileValuesGiveTheDesktopsDefault) {
    run.hide();
    writeFile(path, R"({"version":1,"values":{"1":"\"; evil(); ","2":"dodge","9":"never"}})");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, nothingIsHiddenWhenItCouldNotBeBroughtBack) {
    std::filesystem::create_directories(path / "in the way");
    run.hide();
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not hide the panels: ")) << log.lines[0];
}

TEST_F(AutohidingPanelsTest, aFailureToBringBackKeepsTheValuesForTheNextTime) {
    run.hide();
    desktop.writeError = "refused";
    run.show();
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not bring back the panels: refused"}));
    EXPECT_EQ(desktop.panels, allAway);

    desktop.writeError.clear();
    auto next = newDock();
    HiderRun later(next);
    EXPECT_EQ(later.hide(), nothing);
    EXPECT_NE(later.show(), nothing);
    EXPECT_EQ(desktop.panels, (SavedValues{{"1", std::nullopt}, {"2", "dodge"}}));
}

TEST_F(AutohidingPanelsTest, panelsThatCannotBeReadAreOneLineAndNothingMore) {
    run.hide();
    desktop.readError = "no answer";
    desktop.reads = 0;
    desktop.writes = 0;
    run.show();
    EXPECT_EQ(desktop.reads, 1);
    EXPECT_EQ(desktop.writes, 0);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not read the panels: no answer"}));
    EXPECT_TRUE(isPutAside());
}

TEST_F(AutohidingPanelsTest, aDesktopWithoutPanelsCountsAsHidden) {
    desktop.panels.clear();
    EXPECT_EQ(run.hide(), nothing);
    EXPECT_EQ(run.remembered(), nothing);
    dock.write(away);
    EXPECT_EQ(desktop.writes, 0);
    EXPECT_FALSE(isPutAside());
    EXPECT_EQ(log.lines, Lines());
}

} // namespace

} // namespace quillary::test
