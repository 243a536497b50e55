#include "core/SettingsJson.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace quillary {

namespace {

using testing::HasSubstr;
using testing::Not;

std::optional<DockConfig> decodedDock(const std::string& dock) {
    const std::optional<Settings> settings = decodeSettings(R"({"docks": [)" + dock + "]}");
    return settings && settings->docks.size() == 1 ? std::optional(settings->docks[0]) : std::nullopt;
}

std::string encoded(const Settings& settings) {
    return encodeSettings(settings).value_or("an error");
}

TEST(SettingsJson, anEmptyObjectIsTheDefaults) {
    EXPECT_EQ(decodeSettings("{}"), Settings());
}

TEST(SettingsJson, aScreenKeyAloneGivesADockWithEveryDefault) {
    EXPECT_EQ(decodedDock(R"({"screenKey": "K"})"), DockConfig("K", "", {}));
}

TEST(SettingsJson, everyFieldIsRead) {
    const std::optional<Settings> settings = decodeSettings(R"({
        "docks": [{"screenKey": "K", "screenName": "N", "enabled": false, "edge": "top", "iconSize": 36.5,
                   "showRunning": false, "style": "shelf", "magnification": "big", "bounceOnLaunch": false,
                   "autoHide": true, "items": ["/a", "/b"]}],
        "onboarded": true, "hideSystemDock": false, "showMemory": false,
        "savedSystemDock": {"autohide": true, "delay": 0.5}})");
    ASSERT_TRUE(settings.has_value());
    DockConfig config("K", "N", {"/a", "/b"});
    config.enabled = false;
    config.edge = DockEdge::top;
    config.iconSize = 36.5;
    config.showRunning = false;
    config.style = DockStyle::shelf;
    config.magnification = Magnification::big;
    config.bounceOnLaunch = false;
    config.autoHide = true;
    EXPECT_EQ(settings->docks, std::vector{config});
    EXPECT_TRUE(settings->onboarded);
    EXPECT_FALSE(settings->hideSystemDock);
    EXPECT_FALSE(settings->showMemory);
    EXPECT_EQ(settings->savedSystemDock, (DockPrefs{true, 0.5}));
}

TEST(SettingsJson, nullCountsAsMissing) {
    EXPECT_EQ(decodeSettings(R"({"docks": null, "onboarded": null, "savedSystemDock": null})"), Settings());
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "screenName": null, "enabled": null, "edge": null,
                              "iconSize": null, "style": null, "items": null})"),
              DockConfig("K", "", {}));
    EXPECT_EQ(decodeSettings(R"({"savedSystemDock": {"autohide": null, "delay": null}})")->savedSystemDock,
              DockPrefs());
}

TEST(SettingsJson, aMissingOrNullScreenKeyFails) {
    EXPECT_EQ(decodedDock("{}"), std::nullopt);
    EXPECT_EQ(decodedDock(R"({"screenKey": null})"), std::nullopt);
    EXPECT_EQ(decodedDock(R"({"screenKey": 7})"), std::nullopt);
}

TEST(SettingsJson, unknownKeysAreIgnored) {
    EXPECT_EQ(decodeSettings(R"({"future": {"a": [1, null]}, "showMemory": true})"), Settings());
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "Enabled": 1})"), DockConfig("K", "", {}));
}

TEST(SettingsJson, aWholeNumberIsFineWhereADoubleIsWanted) {
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "iconSize": 64})")->iconSize, 64.0);
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "iconSize": -3})")->iconSize, -3.0);
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "iconSize": 123456789012345678901234567890})")->iconSize,
              123456789012345678901234567890.0);
}

TEST(SettingsJson, aWrongTypeFailsTheWhole) {
    for (const char* field :
         {R"("screenName": 1)", R"("enabled": 1)", R"("enabled": "true")", R"("edge": 0)",
          R"("iconSize": "48")", R"("iconSize": true)", R"("showRunning": 0)", R"("style": true)",
          R"("magnification": 0.35)", R"("bounceOnLaunch": {})", R"("autoHide": [])", R"("items": "/a")",
          R"("items": {})", R"("items": [1])", R"("items": [null])"}) {
        EXPECT_EQ(decodedDock(std::string(R"({"screenKey": "K", )") + field + "}"), std::nullopt) << field;
    }
    for (const char* field :
         {R"("docks": {})", R"("docks": [null])", R"("docks": ["K"])", R"("onboarded": 1)",
          R"("hideSystemDock": "no")", R"("showMemory": 0)", R"("savedSystemDock": true)",
          R"("savedSystemDock": [])", R"("savedSystemDock": {"autohide": 1})",
          R"("savedSystemDock": {"delay": true})", R"("savedSystemDock": {"delay": "1"})"}) {
        EXPECT_EQ(decodeSettings("{" + std::string(field) + "}"), std::nullopt) << field;
    }
}

TEST(SettingsJson, anUnknownEnumerationStringFailsTheWhole) {
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "style": "wood"})"), std::nullopt);
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "edge": "Bottom"})"), std::nullopt);
    EXPECT_EQ(decodedDock(R"({"screenKey": "K", "magnification": ""})"), std::nullopt);
    EXPECT_EQ(decodeSettings(R"({"docks": [{"screenKey": "A"}, {"screenKey": "B", "style": "wood"}]})"),
              std::nullopt);
}

TEST(SettingsJson, textThatIsNoJsonObjectFails) {
    for (const std::string_view text :
         {"", " ", "[]", "null", "1", "\"a\"", "{", "{}}", "{} x", "{'a': 1}", "{\"a\": 1,}", "// c\n{}",
          "{\"a\": NaN}", "{\"a\": 01}", "{\"screenName\": \"\xff\"}", "{\"a\": \"\xed\xa0\x80\"}",
          "{\"a\": \"\\ud800\"}", "{\"a\": 1e999}", "{\"a\": -1e999}"}) {
        EXPECT_EQ(decodeSettings(text), std::nullopt) << text;
    }
    EXPECT_EQ(decodeSettings(std::string_view("\0", 1)), std::nullopt);
    EXPECT_EQ(decodeSettings(std::string_view("{}\0", 3)), std::nullopt);
}

TEST(SettingsJson, ofDuplicateKeysTheLastCounts) {
    EXPECT_EQ(decodeSettings(R"({"onboarded": true, "onboarded": false})")->onboarded, false);
}

std::string nested(std::size_t depth, const std::string& innermost) {
    return R"({"future": )" + std::string(depth, '[') + innermost + std::string(depth, ']') + "}";
}

TEST(SettingsJson, nestingIsBounded) {
    EXPECT_EQ(decodeSettings(nested(63, "1")), Settings());
    EXPECT_EQ(decodeSettings(nested(64, "1")), std::nullopt);
}

TEST(SettingsJson, depthBombsDoNotOverflowTheStack) {
    EXPECT_EQ(decodeSettings(std::string(900'000, '[')), std::nullopt);
    EXPECT_EQ(decodeSettings(nested(500'000, "")), std::nullopt);
    std::string objects;
    for (int level = 0; level < 300'000; ++level) {
        objects += R"({"a":)";
    }
    EXPECT_EQ(decodeSettings(objects), std::nullopt);
    EXPECT_EQ(decodeSettings(objects + "1" + std::string(300'000, '}')), std::nullopt);
}

TEST(SettingsJson, keysAreWrittenInAlphabeticalOrder) {
    Settings settings({DockConfig("K", "N", {"/b", "/a"})}, true);
    settings.savedSystemDock = DockPrefs{false, 0.25};
    EXPECT_EQ(encoded(settings), R"({
  "docks": [
    {
      "autoHide": false,
      "bounceOnLaunch": true,
      "edge": "bottom",
      "enabled": true,
      "iconSize": 48.0,
      "items": [
        "/b",
        "/a"
      ],
      "magnification": "subtle",
      "screenKey": "K",
      "screenName": "N",
      "showRunning": true,
      "style": "glass"
    }
  ],
  "hideSystemDock": true,
  "onboarded": true,
  "savedSystemDock": {
    "autohide": false,
    "delay": 0.25
  },
  "showMemory": true
}
)");
}

TEST(SettingsJson, absentPreferencesAreLeftOut) {
    EXPECT_THAT(encoded(Settings()), Not(HasSubstr("savedSystemDock")));
    Settings settings;
    settings.savedSystemDock = DockPrefs{};
    EXPECT_THAT(encoded(settings), HasSubstr("\"savedSystemDock\": {}"));
    EXPECT_EQ(decodeSettings(encoded(settings)), settings);
    settings.savedSystemDock = DockPrefs{std::nullopt, 2.0};
    EXPECT_THAT(encoded(settings), Not(HasSubstr("autohide")));
    EXPECT_EQ(decodeSettings(encoded(settings)), settings);
}

TEST(SettingsJson, illFormedTextIsReplacedRatherThanFailing) {
    const Settings settings({DockConfig("K", "bad \xff name", {"/\xc3"})}, false);
    const std::optional<Settings> decoded = decodeSettings(encoded(settings));
    ASSERT_TRUE(decoded.has_value());
    EXPECT_EQ(decoded->docks[0].screenName, "bad \xef\xbf\xbd name");
}

TEST(SettingsJson, numbersThatAreNotFiniteAreAnError) {
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        Settings size({DockConfig("K", "", {}), DockConfig("L", "", {})}, false);
        size.docks[1].iconSize = value;
        EXPECT_EQ(encodeSettings(size), Failure("iconSize is not a finite number"));
        Settings delay;
        delay.savedSystemDock = DockPrefs{true, value};
        EXPECT_EQ(encodeSettings(delay), Failure("delay is not a finite number"));
    }
}

std::string randomText(std::mt19937_64& random) {
    static constexpr std::string_view pieces[] = {"a",
                                                  "/",
                                                  "\"",
                                                  "\\",
                                                  "\n",
                                                  "\x01",
                                                  "\x7f",
                                                  "\xc3\xa4",
                                                  "\xe2\x82\xac",
                                                  "\xf0\x9f\x8e\x89",
                                                  "\xef\xbf\xbf",
                                                  "\xe2\x80\xa8",
                                                  std::string_view("\0", 1)};
    std::string text;
    for (auto count = random() % 8; count > 0; --count) {
        text += pieces[random() % std::size(pieces)];
    }
    return text;
}

double randomFinite(std::mt19937_64& random) {
    static constexpr double exotic[] = {-0.0,  0.1,  5e-324, 1e-310,  1.7976931348623157e308,
                                        -1e22, 1e23, 48.0,   1.0 / 3, 9007199254740993.0};
    if (random() % 2 == 0) {
        return exotic[random() % std::size(exotic)];
    }
    const auto value = std::bit_cast<double>(random());
    return std::isfinite(value) ? value : 1.5;
}

template<RawEnum E>
E randomCase(std::mt19937_64& random) {
    return allCases<E>()[random() % allCases<E>().size()];
}

DockConfig randomDock(std::mt19937_64& random) {
    DockConfig config(randomText(random), randomText(random), {});
    config.enabled = random() % 2 == 0;
    config.edge = randomCase<DockEdge>(random);
    config.iconSize = randomFinite(random);
    config.showRunning = random() % 2 == 0;
    config.style = randomCase<DockStyle>(random);
    config.magnification = randomCase<Magnification>(random);
    config.bounceOnLaunch = random() % 2 == 0;
    config.autoHide = random() % 2 == 0;
    for (auto count = random() % 5; count > 0; --count) {
        config.items.push_back(randomText(random));
    }
    return config;
}

TEST(SettingsJson, encodingAndDecodingIsTheIdentity) {
    for (std::uint64_t seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        Settings settings({}, random() % 2 == 0);
        for (auto count = random() % 4; count > 0; --count) {
            settings.docks.push_back(randomDock(random));
        }
        settings.hideSystemDock = random() % 2 == 0;
        settings.showMemory = random() % 2 == 0;
        if (random() % 2 == 0) {
            settings.savedSystemDock.emplace();
            if (random() % 2 == 0) {
                settings.savedSystemDock->autohide = random() % 2 == 0;
            }
            if (random() % 2 == 0) {
                settings.savedSystemDock->delay = randomFinite(random);
            }
        }
        const std::string text = encoded(settings);
        const std::optional<Settings> decoded = decodeSettings(text);
        ASSERT_EQ(decoded, settings);
        ASSERT_EQ(encoded(*decoded), text);
    }
}

} // namespace

} // namespace quillary
