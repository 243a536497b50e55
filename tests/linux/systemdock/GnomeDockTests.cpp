#include "platform/linux/systemdock/GnomeDock.h"
#include "tests/linux/LinesLog.h"
#include "tests/linux/World.h"
#include "tests/linux/systemdock/GnomeSchemaCheck.h"
#include "tests/linux/systemdock/HiderRun.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>

namespace quillary::test {

namespace {

using Values = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;
using Settings = Released<GSettings, g_object_unref>;

constexpr const char* schemaName = "org.gnome.shell.extensions.dash-to-dock";

std::string printed(GVariant* value) {
    const Released<char, g_free> text(g_variant_print(value, FALSE));
    return text.get();
}

/// Real settings with the extension's own schema, stored in a file.
class GnomeDockTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(path.parent_path());
        for (const auto& [key, value] : userValues()) {
            g_settings_reset(settings.get(), key.c_str());
        }
        ASSERT_EQ(userValues(), Values());
    }

    [[nodiscard]] GnomeDock newDock() { return {GnomeDockSchema::find(), SavedValuesFile(path), log}; }

    void set(const char* key, const char* value) {
        const Released<GVariant, g_variant_unref> parsed(
            g_variant_parse(nullptr, value, nullptr, nullptr, nullptr));
        ASSERT_TRUE(g_settings_set_value(settings.get(), key, parsed.get())) << key;
    }
    /// What the user has set, without keys at their default.
    [[nodiscard]] Values userValues() const {
        const GnomeDockSchema::Schema schema = GnomeDockSchema::find();
        const Released<char*, g_strfreev> keys(g_settings_schema_list_keys(schema.get()));
        Values values;
        for (char** key = keys.get(); *key != nullptr; ++key) {
            const Released<GVariant, g_variant_unref> value(g_settings_get_user_value(settings.get(), *key));
            if (value) {
                values.emplace(*key, printed(value.get()));
            }
        }
        return values;
    }
    [[nodiscard]] bool isPutAside() const { return std::filesystem::exists(path); }

    const std::filesystem::path path = World::config() / "Quillary/system-dock.json";
    const Settings settings{g_settings_new(schemaName)};
    LinesLog log;
    GnomeDock dock = newDock();
    HiderRun run{dock};
    const Values hiddenValues{{"autohide", "true"},
                              {"dock-fixed", "false"},
                              {"hotkeys-show-dock", "false"},
                              {"intellihide", "false"},
                              {"require-pressure-to-show", "false"},
                              {"show-delay", "1000.0"},
                              {"show-dock-urgent-notify", "false"}};
};

TEST_F(GnomeDockTest, untouchedSettingsAreHiddenAndReset) {
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(userValues(), hiddenValues);
    EXPECT_EQ(dock.read(), (DockPrefs{true, 1000.0}));

    EXPECT_EQ(run.show(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(run.remembered(), nothing);
    EXPECT_EQ(userValues(), Values());
    EXPECT_FALSE(isPutAside());
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(GnomeDockTest, theUsersOwnValuesComeBack) {
    set("autohide", "true");
    set("show-delay", "0.5");
    const auto own = userValues();
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{true, 0.5}));
    EXPECT_EQ(run.show(), (DockPrefs{true, 0.5}));
    EXPECT_EQ(userValues(), own);
}

TEST_F(GnomeDockTest, whatTheTwoValuesCannotHoldComesBackToTheLetter) {
    set("autohide", "false");
    set("show-delay", "0.1234567890123");
    set("dock-fixed", "true");
    set("require-pressure-to-show", "true");
    set("hotkeys-show-dock", "false");
    set("dock-position", "'LEFT'");
    const auto own = userValues();
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{false, 0.1234567890123}));
    EXPECT_EQ(userValues().at("dock-fixed"), "false");
    EXPECT_EQ(userValues().at("dock-position"), "'LEFT'");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(userValues(), own);
}

TEST_F(GnomeDockTest, aStartAfterACrashKeepsWhatWasPutAside) {
    set("autohide", "false");
    set("dock-fixed", "true");
    const auto own = userValues();
    run.hide();
    auto next = newDock();
    HiderRun later(next, run.remembered());
    EXPECT_EQ(later.hide(), nothing);
    EXPECT_EQ(later.remembered(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(later.show(), (DockPrefs{false, std::nullopt}));
    EXPECT_EQ(userValues(), own);
}

TEST_F(GnomeDockTest, aDelaySetByHandIsKept) {
    set("show-delay", "0.5");
    run.hide();
    set("show-delay", "2.0");
    EXPECT_EQ(dock.read(), (DockPrefs{true, 2.0}));
    EXPECT_EQ(run.show(), nothing);
    EXPECT_EQ(run.remembered(), nothing);
    EXPECT_EQ(userValues().at("show-delay"), "2.0");
    EXPECT_FALSE(isPutAside());
}

TEST_F(GnomeDockTest, aDockKeptOnTheScreenByHandIsNotHidden) {
    for (const char* key : {"dock-fixed", "intellihide"}) {
        SetUp();
        run.hide();
        set(key, "true");
        EXPECT_EQ(dock.read(), (DockPrefs{false, 1000.0})) << key;
        EXPECT_EQ(run.show(), nothing) << key;
        EXPECT_EQ(userValues().at(key), "true");
    }
}

TEST_F(GnomeDockTest, aDelayOf1000WithoutHidingIsNotHidden) {
    set("autohide", "false");
    set("intellihide", "false");
    set("show-delay", "1000.0");
    EXPECT_EQ(dock.read(), (DockPrefs{false, 1000.0}));
    EXPECT_EQ(run.show(), nothing);
}

TEST_F(GnomeDockTest, aFurtherSwitchTurnedOnByHandIsKept) {
    run.hide();
    set("show-dock-urgent-notify", "true");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(userValues(), (Values{{"show-dock-urgent-notify", "true"}}));
}

TEST_F(GnomeDockTest, withoutUsableValuesTheTwoAreSetAndTheRestIsReset) {
    for (const char* text : {"", "{", R"({"version":1,"values":[]})"}) {
        SetUp();
        set("autohide", "true");
        set("show-delay", "0.5");
        set("dock-fixed", "true");
        run.hide();
        writeFile(path, text);
        EXPECT_EQ(dock.read(), away);
        EXPECT_EQ(run.show(), (DockPrefs{true, 0.5}));
        EXPECT_EQ(userValues(), (Values{{"autohide", "true"}, {"show-delay", "0.5"}})) << text;
        EXPECT_FALSE(isPutAside());
    }
}

TEST_F(GnomeDockTest, aLostFileAndForgottenSettingsRemoveEverything) {
    run.hide();
    std::filesystem::remove(path);
    HiderRun later(dock);
    EXPECT_EQ(later.show(), (DockPrefs{std::nullopt, std::nullopt}));
    EXPECT_EQ(userValues(), Values());
}

TEST_F(GnomeDockTest, hostileValuesAreReset) {
    run.hide();
    writeFile(path, R"({"version":1,"values":{"autohide":"7","show-delay":"[[[","dock-fixed":"''",
                    "intellihide":"@a{sv} {}","dock-position":"'TOP'","no-such-key":"true",
                    "hotkeys-show-dock":"true"}})");
    EXPECT_NE(run.show(), nothing);
    EXPECT_EQ(userValues(), (Values{{"hotkeys-show-dock", "true"}}));
}

TEST_F(GnomeDockTest, aDelayThatIsNoNumberIsAbsent) {
    g_settings_set_double(settings.get(), "show-delay", std::nan(""));
    EXPECT_EQ(dock.read(), (DockPrefs{std::nullopt, std::nullopt}));
    run.hide();
    EXPECT_EQ(dock.read(), away);
    run.show();
    EXPECT_TRUE(std::isnan(g_settings_get_double(settings.get(), "show-delay")));
}

TEST_F(GnomeDockTest, nothingIsHiddenWhenItCouldNotBeBroughtBack) {
    std::filesystem::create_directories(path / "in the way");
    run.hide();
    EXPECT_EQ(userValues(), Values());
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Quillary: could not hide GNOME's dock: ")) << log.lines[0];
}

TEST_F(GnomeDockTest, hidingAgainKeepsTheUsersValues) {
    set("show-delay", "0.5");
    run.hide();
    dock.write(away);
    run.show();
    EXPECT_EQ(userValues(), (Values{{"show-delay", "0.5"}}));
}

TEST_F(GnomeDockTest, settingsReachTheDisk) {
    const auto storage = World::config() / "glib-2.0/settings/keyfile";
    run.hide();
    EXPECT_NE(readFile(storage).find("show-delay=1000.0"), std::string::npos) << readFile(storage);
    run.show();
    EXPECT_EQ(readFile(storage).find("show-delay"), std::string::npos) << readFile(storage);
}

class LimitedGnomeDockTest : public testing::Test {
protected:
    [[nodiscard]] static GnomeDockSchema::Schema schemaIn(const char* folder) {
        const Released<GSettingsSchemaSource, g_settings_schema_source_unref> source(
            g_settings_schema_source_new_from_directory(folder, nullptr, FALSE, nullptr));
        return GnomeDockSchema::Schema(g_settings_schema_source_lookup(source.get(), schemaName, FALSE));
    }
    const std::filesystem::path path = World::config() / "limited.json";
    LinesLog log;
};

TEST_F(LimitedGnomeDockTest, theGreatestDelayOfTheSchemaStandsForTheWantedOne) {
    const Settings settings(g_settings_new_full(schemaIn(QUILLARY_LIMITED_SCHEMAS).get(), nullptr, nullptr));
    g_settings_set_double(settings.get(), "show-delay", 0.5);
    GnomeDock dock(schemaIn(QUILLARY_LIMITED_SCHEMAS), SavedValuesFile(path), log);
    HiderRun run(dock);
    EXPECT_EQ(run.hide(), away);
    EXPECT_EQ(run.remembered(), (DockPrefs{std::nullopt, 0.5}));
    EXPECT_EQ(g_settings_get_double(settings.get(), "show-delay"), 60.0);
    EXPECT_EQ(dock.read(), away);
    EXPECT_EQ(run.show(), (DockPrefs{std::nullopt, 0.5}));
    EXPECT_EQ(g_settings_get_double(settings.get(), "show-delay"), 0.5);
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(LimitedGnomeDockTest, aValueOutsideOfTheSchemasLimitsIsReset) {
    GnomeDock dock(schemaIn(QUILLARY_LIMITED_SCHEMAS), SavedValuesFile(path), log);
    dock.write(away);
    writeFile(path, R"({"version":1,"values":{"show-delay":"61.0"}})");
    dock.write(DockPrefs{});
    EXPECT_EQ(dock.read(), (DockPrefs{std::nullopt, std::nullopt}));
}

} // namespace

} // namespace quillary::test

int main(int argc, char** argv) {
    quillary::test::World::enter();
    ::setenv("GSETTINGS_BACKEND", "keyfile", 1);
    ::setenv("GSETTINGS_SCHEMA_DIR", QUILLARY_DOCK_SCHEMAS, 1);
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    quillary::test::World::leave();
    return result;
}
