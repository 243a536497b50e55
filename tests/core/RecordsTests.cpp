#include "core/DockConfig.h"
#include "core/DockPrefs.h"
#include "core/Settings.h"

#include <gtest/gtest.h>

namespace quillary {

namespace {

TEST(RawEnum, edgesKeepTheirStringsAndOrder) {
    EXPECT_EQ(allCases<DockEdge>(),
              (std::array{DockEdge::bottom, DockEdge::left, DockEdge::right, DockEdge::top}));
    EXPECT_EQ(rawValue(DockEdge::bottom), "bottom");
    EXPECT_EQ(rawValue(DockEdge::left), "left");
    EXPECT_EQ(rawValue(DockEdge::right), "right");
    EXPECT_EQ(rawValue(DockEdge::top), "top");
    EXPECT_EQ(fromRawValue<DockEdge>("top"), DockEdge::top);
}

TEST(RawEnum, unknownStringsGiveNothing) {
    EXPECT_EQ(fromRawValue<DockEdge>("Top"), std::nullopt);
    EXPECT_EQ(fromRawValue<DockEdge>("top "), std::nullopt);
    EXPECT_EQ(fromRawValue<DockEdge>(""), std::nullopt);
    EXPECT_EQ(fromRawValue<DockStyle>("glas"), std::nullopt);
    EXPECT_EQ(fromRawValue<Magnification>("huge"), std::nullopt);
}

TEST(RawEnum, aValueThatIsNoCaseHasNoString) {
    EXPECT_EQ(rawValue(static_cast<DockEdge>(99)), "");
}

TEST(DockEdge, bottomAndTopAreHorizontal) {
    EXPECT_TRUE(isHorizontal(DockEdge::bottom));
    EXPECT_TRUE(isHorizontal(DockEdge::top));
    EXPECT_FALSE(isHorizontal(DockEdge::left));
    EXPECT_FALSE(isHorizontal(DockEdge::right));
}

TEST(DockStyle, hasFiveCasesWithTitles) {
    EXPECT_EQ(allCases<DockStyle>(), (std::array{DockStyle::glass, DockStyle::pill, DockStyle::bubbles,
                                                 DockStyle::minimal, DockStyle::shelf}));
    EXPECT_EQ(title(DockStyle::glass), "Glass");
    EXPECT_EQ(title(DockStyle::pill), "Pill");
    EXPECT_EQ(title(DockStyle::bubbles), "Bubbles");
    EXPECT_EQ(title(DockStyle::minimal), "Minimal");
    EXPECT_EQ(title(DockStyle::shelf), "Shelf");
    EXPECT_EQ(rawValue(DockStyle::shelf), "shelf");
    EXPECT_EQ(fromRawValue<DockStyle>("bubbles"), DockStyle::bubbles);
}

TEST(Magnification, hasThreeCasesWithTitlesAndAmounts) {
    EXPECT_EQ(allCases<Magnification>(),
              (std::array{Magnification::off, Magnification::subtle, Magnification::big}));
    EXPECT_EQ(title(Magnification::off), "Off");
    EXPECT_EQ(title(Magnification::subtle), "Subtle");
    EXPECT_EQ(title(Magnification::big), "Big");
    EXPECT_EQ(amount(Magnification::off), 0.0);
    EXPECT_EQ(amount(Magnification::subtle), 0.35);
    EXPECT_EQ(amount(Magnification::big), 0.8);
    EXPECT_EQ(fromRawValue<Magnification>("off"), Magnification::off);
}

TEST(DockConfig, constructorGivesTheDefaults) {
    const DockConfig config("A-B", "Left", {"/a"});
    EXPECT_EQ(config.screenKey, "A-B");
    EXPECT_EQ(config.screenName, "Left");
    EXPECT_EQ(config.items, std::vector<std::string>{"/a"});
    EXPECT_TRUE(config.enabled);
    EXPECT_EQ(config.edge, DockEdge::bottom);
    EXPECT_EQ(config.iconSize, 48.0);
    EXPECT_TRUE(config.showRunning);
    EXPECT_EQ(config.style, DockStyle::glass);
    EXPECT_EQ(config.magnification, Magnification::subtle);
    EXPECT_TRUE(config.bounceOnLaunch);
    EXPECT_FALSE(config.autoHide);
}

TEST(DockConfig, equalityLooksAtEveryField) {
    const DockConfig base("k", "n", {"/a", "/b"});
    const auto differs = [&base](auto&& change) {
        DockConfig other = base;
        change(other);
        return other != base;
    };
    EXPECT_EQ(base, DockConfig("k", "n", {"/a", "/b"}));
    EXPECT_TRUE(differs([](DockConfig& c) { c.screenKey = "x"; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.screenName = "x"; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.enabled = false; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.edge = DockEdge::top; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.iconSize = 49; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.showRunning = false; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.style = DockStyle::pill; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.magnification = Magnification::big; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.bounceOnLaunch = false; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.autoHide = true; }));
    EXPECT_TRUE(differs([](DockConfig& c) { c.items = {"/b", "/a"}; }));
}

TEST(DockPrefs, hiddenIsAutohideWithADelayOfAThousandSeconds) {
    EXPECT_EQ(DockPrefs::hidden.autohide, true);
    EXPECT_EQ(DockPrefs::hidden.delay, 1000.0);
}

TEST(Settings, defaultsAreThoseOfAFirstRun) {
    const Settings settings;
    EXPECT_TRUE(settings.docks.empty());
    EXPECT_FALSE(settings.onboarded);
    EXPECT_TRUE(settings.hideSystemDock);
    EXPECT_EQ(settings.savedSystemDock, std::nullopt);
    EXPECT_TRUE(settings.showMemory);
    EXPECT_EQ(settings, Settings({}, false));
}

TEST(Settings, constructorTakesDocksAndOnboarded) {
    const Settings settings({DockConfig("k", "n", {})}, true);
    ASSERT_EQ(settings.docks.size(), 1U);
    EXPECT_TRUE(settings.onboarded);
    EXPECT_TRUE(settings.hideSystemDock);
    EXPECT_TRUE(settings.showMemory);
}

TEST(Settings, anAbsentSavedStateDiffersFromAnEmptyOne) {
    Settings settings;
    settings.savedSystemDock = DockPrefs{};
    EXPECT_NE(settings, Settings());
}

TEST(Settings, dockGivesTheFirstWithExactlyTheKey) {
    const Settings settings({DockConfig("a", "first", {}), DockConfig("a", "second", {})}, false);
    ASSERT_TRUE(settings.dock("a").has_value());
    EXPECT_EQ(settings.dock("a")->screenName, "first");
    EXPECT_EQ(settings.dock("A"), std::nullopt);
    EXPECT_EQ(settings.dock(""), std::nullopt);
}

TEST(Settings, updateChangesTheFirstMatchOnly) {
    Settings settings({DockConfig("x", "", {}), DockConfig("a", "", {}), DockConfig("a", "", {})}, false);
    settings.update("a", [](DockConfig& config) { config.autoHide = true; });
    EXPECT_FALSE(settings.docks[0].autoHide);
    EXPECT_TRUE(settings.docks[1].autoHide);
    EXPECT_FALSE(settings.docks[2].autoHide);
}

TEST(Settings, updateOfAnUnknownKeyDoesNothing) {
    Settings settings({DockConfig("a", "", {})}, false);
    const Settings before = settings;
    settings.update("b", [](DockConfig& config) { config.autoHide = true; });
    EXPECT_EQ(settings, before);
}

} // namespace

} // namespace quillary
