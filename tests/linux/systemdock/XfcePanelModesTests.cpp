#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/systemdock/LinuxSystemDockPreferences.h"
#include "tests/fake/ManualScheduler.h"
#include "tests/linux/systemdock/BusDockTest.h"
#include "tests/linux/systemdock/FakeService.h"

#include <cstdlib>
#include <map>
#include <tuple>

namespace quillary::test {

namespace {

using Manner = FakeService::Manner;
using Properties = std::map<std::string, std::string>;

constexpr const char* panel1 = "/panels/panel-1/autohide-behavior";
constexpr const char* panel2 = "/panels/panel-2/autohide-behavior";
constexpr const char* panel3 = "/panels/panel-3/autohide-behavior";

/// Keeps the properties of one channel, as texts with their types.
class FakeXfconf final : public FakeService {
public:
    FakeXfconf() { own("org.xfce.Xfconf"); }
    ~FakeXfconf() override { leave(); }

    void set(const std::string& property, const std::string& value) {
        const std::lock_guard guard(lock);
        m_properties[property] = value;
    }
    void remove(const std::string& property) {
        const std::lock_guard guard(lock);
        m_properties.erase(property);
    }
    [[nodiscard]] Properties all() const {
        const std::lock_guard guard(lock);
        return m_properties;
    }
    /// The panels' modes only.
    [[nodiscard]] Properties modes() const {
        auto found = all();
        std::erase_if(found, [](const auto& entry) { return !entry.first.ends_with("/autohide-behavior"); });
        return found;
    }

protected:
    [[nodiscard]] bool isReading(const std::string& method, GVariant* /*arguments*/) const override {
        return method == "GetAllProperties";
    }
    [[nodiscard]] GVariant* answer(const std::string& method, GVariant* arguments) override {
        const char* channel = nullptr;
        const char* property = nullptr;
        g_variant_get_child(arguments, 0, "&s", &channel);
        g_variant_get_child(arguments, 1, "&s", &property);
        if (std::string(channel) != "xfce4-panel") {
            return nullptr;
        }
        if (method == "SetProperty") {
            const Value boxed(g_variant_get_child_value(arguments, 2));
            const Value value(g_variant_get_variant(boxed.get()));
            const Released<char, g_free> text(g_variant_print(value.get(), TRUE));
            m_properties[property] = text.get();
        } else if (method == "ResetProperty") {
            m_properties.erase(property);
        } else if (method == "GetAllProperties") {
            return all(property);
        }
        return nullptr;
    }

private:
    [[nodiscard]] GVariant* all(const std::string& base) const {
        GVariantBuilder list;
        g_variant_builder_init(&list, G_VARIANT_TYPE("a{sv}"));
        for (const auto& [name, text] : m_properties) {
            if (name.starts_with(base)) {
                const Value value(g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, nullptr));
                g_variant_builder_add(&list, "{sv}", name.c_str(), value.get());
            }
        }
        return g_variant_new("(a{sv})", &list);
    }

    Properties m_properties;
};

class XfcePanelModesTest : public BusDockTest {
protected:
    void SetUp() override {
        BusDockTest::SetUp();
        xfconf.set("/panels", "[<1>, <2>, <3>]");
        xfconf.set("/panels/panel-1/size", "uint32 26");
        xfconf.set(panel2, "uint32 1");
        xfconf.set(panel3, "0");
    }

    FakeXfconf xfconf;
    std::unique_ptr<DesktopDock> dock = newDock("XFCE");
    HiderRun run{*dock};
};

TEST_F(XfcePanelModesTest, everyPanelIsHiddenAndComesBackToTheLetter) {
    const auto own = xfconf.all();
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(xfconf.modes(), (Properties{{panel1, "uint32 2"}, {panel2, "uint32 2"}, {panel3, "2"}}));
    EXPECT_EQ(dock->read(), (DockPrefs{true, 1000.0}));
    EXPECT_EQ(readFile(folder / "system-dock-xfce.json"),
              "{\n  \"values\": {\n    \"panel-1\": null,\n    \"panel-2\": \"uint32 1\",\n"
              "    \"panel-3\": \"0\"\n  },\n  \"version\": 1\n}\n");

    EXPECT_EQ(run.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(xfconf.all(), own);
    EXPECT_FALSE(std::filesystem::exists(folder / "system-dock-xfce.json"));
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(XfcePanelModesTest, onlyWhatMustChangeIsSet) {
    xfconf.set(panel2, "uint32 2");
    run.hide();
    std::ignore = xfconf.takeCalls();
    run.show();
    EXPECT_EQ(
        xfconf.takeCalls(),
        (Lines{"GetAllProperties('xfce4-panel', '/panels')", "GetAllProperties('xfce4-panel', '/panels')",
               "ResetProperty('xfce4-panel', '/panels/panel-1/autohide-behavior', false)",
               "SetProperty('xfce4-panel', '/panels/panel-3/autohide-behavior', <0>)"}));
}

TEST_F(XfcePanelModesTest, untouchedPanelsReadAsAbsentValues) {
    xfconf.remove(panel2);
    xfconf.remove(panel3);
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(run.show(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(xfconf.modes(), Properties());
}

TEST_F(XfcePanelModesTest, aStartAfterACrashKeepsWhatWasPutAside) {
    const auto own = xfconf.all();
    run.hide();
    const auto next = newDock("XFCE");
    HiderRun later(*next, run.remembered());
    EXPECT_EQ(later.hide(), nothing);
    EXPECT_NE(later.show(), nothing);
    EXPECT_EQ(xfconf.all(), own);
}

TEST_F(XfcePanelModesTest, panelsShownByHandAreLeftAlone) {
    run.hide();
    for (const char* property : {panel1, panel2, panel3}) {
        xfconf.set(property, "uint32 0");
    }
    EXPECT_EQ(dock->read(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(run.show(), nothing);
    EXPECT_EQ(run.remembered(), nothing);
    EXPECT_EQ(xfconf.modes(), (Properties{{panel1, "uint32 0"}, {panel2, "uint32 0"}, {panel3, "uint32 0"}}));
    EXPECT_FALSE(std::filesystem::exists(folder / "system-dock-xfce.json"));
}

TEST_F(XfcePanelModesTest, panelsAddedAndRemovedMeanwhileAreLeftAlone) {
    run.hide();
    xfconf.set("/panels", "[<1>, <4>]");
    xfconf.remove(panel2);
    xfconf.remove(panel3);
    EXPECT_EQ(dock->read(), away);
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(xfconf.modes(), Properties());
}

TEST_F(XfcePanelModesTest, onlyPanelsOfTheListCount) {
    xfconf.set("/panels", "[2]");
    const auto own = xfconf.modes();
    run.hide();
    EXPECT_EQ(xfconf.modes(), (Properties{{panel2, "uint32 2"}, {panel3, "0"}}));
    run.show();
    EXPECT_EQ(xfconf.modes(), own);
}

TEST_F(XfcePanelModesTest, aListOfSomethingElseIsOfNoPanels) {
    for (const char* list : {"true", "'1'", "[<'1'>, <-1>, <[1]>]", "{'a': <1>}"}) {
        xfconf.set("/panels", list);
        EXPECT_EQ(run.hide(), nothing) << list;
    }
    xfconf.remove("/panels");
    EXPECT_EQ(run.hide(), nothing);
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(XfcePanelModesTest, aModeThatCouldNotBePutBackIsNotTouched) {
    xfconf.set(panel1, "[<1>]");
    xfconf.set(panel2, "'" + std::string(300, 'x') + "'");
    const auto own = xfconf.all();
    run.hide();
    EXPECT_EQ(xfconf.modes().at(panel1), "[<1>]");
    EXPECT_EQ(xfconf.modes().at(panel2), "'" + std::string(300, 'x') + "'");
    EXPECT_EQ(xfconf.modes().at(panel3), "2");
    run.show();
    EXPECT_EQ(xfconf.all(), own);
}

TEST_F(XfcePanelModesTest, hostileValuesBringThePanelsBackInXfcesDefault) {
    run.hide();
    writeFile(folder / "system-dock-xfce.json",
              R"({"version":1,"values":{"panel-1":"@a(","panel-2":"[1]","panel-3":"uint32 1","../x":"1"}})");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(xfconf.modes(), (Properties{{panel3, "uint32 1"}}));
}

TEST_F(XfcePanelModesTest, aRefusalIsOneLine) {
    xfconf.manner = Manner::refuses;
    run.hide();
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not hide Xfce's panels: it is locked"}));
    log.lines.clear();
    xfconf.readManner = Manner::refuses;
    EXPECT_EQ(dock->read(), away);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not read Xfce's panels: it is locked"}));
}

TEST_F(XfcePanelModesTest, aSilentServiceCostsASecond) {
    xfconf.readManner = Manner::isSilent;
    EXPECT_LT(seconds([this] { EXPECT_EQ(run.hide(), nothing); }), 3.0);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not read Xfce's panels: no answer"}));
    // As if it had been hidden earlier and were restored.
    EXPECT_LT(seconds([this] { run.show(); }), 3.0);
    EXPECT_EQ(xfconf.modes(), (Properties{{panel2, "uint32 1"}, {panel3, "0"}}));
}

TEST_F(XfcePanelModesTest, changesThatAreNotAnsweredTakeASecondTogether) {
    xfconf.manner = Manner::isSilent;
    EXPECT_LT(seconds([this] { run.hide(); }), 2.5);
    EXPECT_EQ(log.lines, (Lines{"Quillary: could not hide Xfce's panels: no answer"}));
}

TEST_F(XfcePanelModesTest, aServiceThatHasGoneKeepsWhatWasPutAside) {
    const auto own = xfconf.all();
    run.hide();
    const auto hidden = xfconf.all();
    xfconf.leave();
    run.show();
    EXPECT_EQ(log.lines, Lines());

    FakeXfconf again;
    for (const auto& [name, value] : hidden) {
        again.set(name, value);
    }
    const auto next = newDock("XFCE");
    HiderRun later(*next);
    EXPECT_EQ(later.hide(), nothing);
    EXPECT_NE(later.show(), nothing);
    EXPECT_EQ(again.all(), own);
}

TEST_F(XfcePanelModesTest, aRelativeConfigurationFolderIsNotWhereValuesArePutAside) {
    ::setenv("XDG_CURRENT_DESKTOP", "XFCE", 1);
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    ManualScheduler scheduler;
    const DesktopEntries entries(scheduler);
    LinuxSystemDockPreferences preferences(entries, log);
    preferences.write(DockPrefs::hidden);
    ::setenv("XDG_CONFIG_HOME", World::config().c_str(), 1);
    ::unsetenv("XDG_CURRENT_DESKTOP");
    EXPECT_TRUE(std::filesystem::exists(World::home() / ".config/Quillary/system-dock-xfce.json"));
    EXPECT_FALSE(std::filesystem::exists("relative"));
}

using NoXfconfTest = BusDockTest;

TEST_F(NoXfconfTest, aServiceThatDoesNotRunIsNeitherStartedNorMissed) {
    const auto dock = newDock("XFCE");
    HiderRun run(*dock);
    EXPECT_EQ(run.hide(), nothing);
    EXPECT_EQ(run.show(), DockPrefs{});
    EXPECT_EQ(log.lines, Lines());
    EXPECT_FALSE(std::filesystem::exists(World::root().string() + "-services/started"));
}

} // namespace

} // namespace quillary::test
