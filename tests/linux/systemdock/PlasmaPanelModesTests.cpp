#include "tests/linux/systemdock/BusDockTest.h"
#include "tests/linux/systemdock/FakeService.h"

#include <tuple>
#include <utility>

namespace quillary::test {

namespace {

using Manner = FakeService::Manner;

constexpr const char* reading =
    R"(panels().forEach(function(panel) { print(panel.id + " " + panel.hiding + "\n"); });)";

/// Records scripts without evaluating them; the test sets what a reading script prints.
class FakePlasma final : public FakeService {
public:
    FakePlasma() { own("org.kde.plasmashell"); }
    ~FakePlasma() override { leave(); }

    void prints(const std::string& text) {
        const std::lock_guard guard(lock);
        m_output = text;
    }
    /// The scripts that would have changed something.
    [[nodiscard]] std::vector<std::string> changes() {
        const std::lock_guard guard(lock);
        return std::exchange(m_scripts, {});
    }

protected:
    [[nodiscard]] bool isReading(const std::string& /*method*/, GVariant* arguments) const override {
        const char* script = nullptr;
        g_variant_get(arguments, "(&s)", &script);
        return std::string(script) == reading;
    }
    [[nodiscard]] GVariant* answer(const std::string& method, GVariant* arguments) override {
        if (method == "evaluateScript" && isReading(method, arguments)) {
            return g_variant_new("(s)", m_output.c_str());
        }
        const char* script = nullptr;
        g_variant_get(arguments, "(&s)", &script);
        m_scripts.emplace_back(script);
        return g_variant_new("(s)", "");
    }

private:
    std::string m_output;
    std::vector<std::string> m_scripts;
};

class PlasmaPanelModesTest : public BusDockTest {
protected:
    PlasmaPanelModesTest() { plasma.prints("2 none\n15 dodgewindows\n"); }

    static std::string setting(const std::string& modes) {
        return "var modes = {" + modes +
               "}; panels().forEach(function(panel) { if (modes[panel.id] !== undefined) "
               "{ panel.hiding = modes[panel.id]; } });";
    }

    FakePlasma plasma;
    std::unique_ptr<DesktopDock> dock = newDock("KDE");
    HiderRun run{*dock};
};

TEST_F(PlasmaPanelModesTest, everyPanelIsHiddenAndComesBackAsItWas) {
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "autohide", "2": "autohide")")}));
    plasma.prints("2 autohide\n15 autohide\n");
    EXPECT_EQ(dock->read(), away);

    EXPECT_EQ(run.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "dodgewindows", "2": "none")")}));
    EXPECT_FALSE(std::filesystem::exists(folder / "system-dock-plasma.json"));
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(PlasmaPanelModesTest, aPanelThatItsUserKeepsAwayIsNotChanged) {
    plasma.prints("2 autohide\n15 none");
    run.hide();
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "autohide")")}));
    plasma.prints("2 autohide\n\n15 autohide\n\n");
    run.show();
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "none")")}));
}

TEST_F(PlasmaPanelModesTest, panelsShownByHandAreLeftAlone) {
    run.hide();
    std::ignore = plasma.changes();
    EXPECT_EQ(run.show(), nothing);
    EXPECT_EQ(plasma.changes(), Lines());
}

TEST_F(PlasmaPanelModesTest, outputOfAnotherKindIsOfNoPanels) {
    for (const std::string& text :
         {std::string(), std::string("undefined"), std::string("x none\n"), std::string("2 \n"),
          std::string("2 no ne\n"), std::string("2 none;\n"), std::string("-2 none\n"),
          std::string(40, '2') + " none\n", "2 " + std::string(40, 'n') + "\n"}) {
        plasma.prints(text);
        EXPECT_EQ(run.hide(), nothing) << text;
    }
    EXPECT_EQ(plasma.changes(), Lines());
}

TEST_F(PlasmaPanelModesTest, hostileValuesNeverBecomePartOfAScript) {
    run.hide();
    plasma.prints("2 autohide\n15 autohide\n");
    std::ignore = plasma.changes();
    writeFile(folder / "system-dock-plasma.json",
              R"({"version":1,"values":{"2":"none\"}; evil(); x = {\"","15":"dodgewindows","1\"":"none"}})");
    run.show();
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "dodgewindows", "2": "none")")}));
}

TEST_F(PlasmaPanelModesTest, damagedValuesBringThePanelsBackInPlasmasDefault) {
    run.hide();
    plasma.prints("2 autohide\n15 autohide\n");
    std::ignore = plasma.changes();
    writeFile(folder / "system-dock-plasma.json", "damaged");
    run.show();
    EXPECT_EQ(plasma.changes(), (Lines{setting(R"("15": "none", "2": "none")")}));
}

TEST_F(PlasmaPanelModesTest, aRefusalIsOneLine) {
    plasma.manner = Manner::refuses;
    run.hide();
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not hide Plasma's panels: it is locked"}));
}

TEST_F(PlasmaPanelModesTest, aSilentShellCostsASecond) {
    plasma.readManner = Manner::isSilent;
    EXPECT_LT(seconds([this] { EXPECT_EQ(run.hide(), nothing); }), 2.5);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not read Plasma's panels: no answer"}));
}

} // namespace

} // namespace quillary::test
