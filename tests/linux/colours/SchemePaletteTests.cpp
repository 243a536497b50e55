#include "platform/linux/colours/SchemePalette.h"
#include "tests/linux/bus/PrivateBus.h"
#include "tests/linux/colours/PortalStandIn.h"
#include "tests/surroundings/QtSurroundings.h"
#include "tests/x11/VirtualDisplay.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <optional>

namespace quillary::test {

namespace {

using Scheme = PortalColorScheme::Scheme;

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightnessF() < 0.5F &&
           palette.color(QPalette::Base).lightnessF() < 0.5F &&
           palette.color(QPalette::WindowText).lightnessF() > 0.5F;
}

/// A light theme on a session bus.
class SchemePaletteTest : public testing::Test {
protected:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "scheme-tests";
        static char* arguments[] = {name, nullptr};
        application.emplace(count, arguments);
        ASSERT_FALSE(bus.address().empty());
        ASSERT_FALSE(isDark(QGuiApplication::palette()));
    }
    static bool eventually(const std::function<bool()>& condition) {
        return VirtualDisplay::waitUntil(condition);
    }
    static bool becomesDark() {
        return eventually([] { return isDark(QGuiApplication::palette()); });
    }
    static bool becomesLight() {
        return eventually([] { return !isDark(QGuiApplication::palette()); });
    }

    PrivateBus bus;
    std::optional<QGuiApplication> application;
};

} // namespace

TEST_F(SchemePaletteTest, thePreferenceOfTheStartHolds) {
    const PortalStandIn portal(bus.address(), QVariant(1U));
    const SchemePalette palette;
    EXPECT_TRUE(becomesDark());
    EXPECT_EQ(portal.asked, "org.freedesktop.appearance color-scheme");
}

TEST_F(SchemePaletteTest, aChangeIsFollowedWhileRunning) {
    PortalStandIn portal(bus.address(), QVariant(0U));
    const SchemePalette palette;
    ASSERT_TRUE(eventually([&] { return !portal.asked.empty(); }));
    portal.choose(appearance, colorScheme, QVariant(1U));
    EXPECT_TRUE(becomesDark());
    portal.choose(appearance, colorScheme, QVariant(2U));
    EXPECT_TRUE(becomesLight());
    portal.choose(appearance, colorScheme, QVariant(1U));
    EXPECT_TRUE(becomesDark());
    portal.choose(appearance, colorScheme, QVariant(0U));
    EXPECT_TRUE(becomesLight()) << "the theme's own";
}

TEST_F(SchemePaletteTest, otherSettingsAndOddValuesAreNoPreference) {
    PortalStandIn portal(bus.address(), QVariant(1U));
    const SchemePalette palette;
    ASSERT_TRUE(becomesDark());
    portal.choose(appearance, QStringLiteral("contrast"), QVariant(2U));
    portal.choose(QStringLiteral("org.gnome.desktop.interface"), colorScheme, QVariant(2U));
    VirtualDisplay::runFor(300);
    EXPECT_TRUE(isDark(QGuiApplication::palette()));
    portal.choose(appearance, colorScheme, QVariant(QStringLiteral("prefer-dark")));
    EXPECT_TRUE(becomesLight());
}

TEST_F(SchemePaletteTest, aPortalThatStartsLaterIsHeard) {
    const SchemePalette palette;
    VirtualDisplay::runFor(300);
    EXPECT_FALSE(isDark(QGuiApplication::palette()));
    const PortalStandIn portal(bus.address(), QVariant(1U));
    EXPECT_TRUE(becomesDark());
}

TEST_F(SchemePaletteTest, withoutABusTheThemeStays) {
    bus.stop();
    const SchemePalette palette;
    VirtualDisplay::runFor(300);
    EXPECT_FALSE(isDark(QGuiApplication::palette()));
}

TEST_F(SchemePaletteTest, fontsAndIconsAreTheTests) {
    expectOwnFontsAndIcons();
}

TEST(SchemePalette, aThemeOfTheShadeKeepsItsColours) {
    QPalette light(QColor(200, 210, 220));
    light.setColor(QPalette::Highlight, QColor(200, 0, 100));
    EXPECT_EQ(SchemePalette::paletteFor(Scheme::light, light), light);
    EXPECT_EQ(SchemePalette::paletteFor(Scheme::unspecified, light), light);
    const QPalette dark = SchemePalette::paletteFor(Scheme::dark, light);
    EXPECT_TRUE(isDark(dark));
    EXPECT_EQ(dark.color(QPalette::Highlight), QColor(200, 0, 100)) << "the accent is the theme's";
    EXPECT_EQ(SchemePalette::paletteFor(Scheme::dark, dark), dark);
    EXPECT_FALSE(isDark(SchemePalette::paletteFor(Scheme::light, dark)));
}

} // namespace quillary::test
