#include "tests/desktop/SettingsWindowFixture.h"

namespace quillary::test {

namespace {

using State = AccessibleNode::State;
using Lines = std::vector<std::string>;

class AccessibilityTest : public SettingsWindowFixture {
protected:
    void SetUp() override {
        SettingsWindowFixture::SetUp();
        startProgram();
        openSettings();
    }

    static void describe(const AccessibleNode& node, Lines& lines) {
        const std::string role = node.role();
        if (role == "check box" || role == "radio button" || role == "slider" || role == "push button") {
            std::string line = role;
            line += ": ";
            line += node.name();
            line += node.has(State::checked) ? " (on)" : "";
            line += node.has(State::focusable) && node.has(State::enabled) && node.has(State::showing)
                        ? ""
                        : " (out of reach)";
            lines.push_back(line);
        }
        for (const AccessibleNode& child : node.children()) {
            describe(child, lines);
        }
    }
};

const Lines dock{"check box: Show a Dock on this screen (on)",
                 "radio button: Bottom (on)",
                 "radio button: Left",
                 "radio button: Right",
                 "radio button: Top",
                 "radio button: Glass (on)",
                 "radio button: Pill",
                 "radio button: Bubbles",
                 "radio button: Minimal",
                 "radio button: Shelf",
                 "slider: Icon size",
                 "radio button: Off",
                 "radio button: Subtle (on)",
                 "radio button: Big",
                 "check box: Bounce when opening apps (on)",
                 "check box: Show running apps (on)",
                 "check box: Auto-hide (show when the pointer touches the edge)",
                 "push button: Add apps from the macOS Dock"};

} // namespace

TEST_F(AccessibilityTest, everyControlIsReachableAndNamedWithItsRoleAndState) {
    Lines expected{"check box: Show which apps are eating memory"};
    expected.insert(expected.end(), dock.begin(), dock.end());
    expected.insert(expected.end(), dock.begin(), dock.end());
    expected.insert(expected.end(), {"check box: Hide the macOS Dock (Quillary replaces it) (on)",
                                     "check box: Launch Quillary at login"});
    Lines found;
    describe(form(), found);
    // What is scrolled out of sight may have a state that says so; it is in reach.
    for (auto& line : found) {
        if (const auto at = line.find(" (out of reach)");
            at != std::string::npos && &line != &found.front()) {
            line.erase(at);
        }
    }
    EXPECT_EQ(found, expected);
    for (const auto* group : {"LEFT", "RIGHT"}) {
        for (const auto* name : {"Position", "Style", "Magnification"}) {
            const auto section =
                form().find([&](const AccessibleNode& node) { return node.name() == group; });
            ASSERT_TRUE(section);
            EXPECT_TRUE(section->find([&](const AccessibleNode& node) {
                return node.name() == name && node.role() != "label" && node.children().size() >= 3;
            })) << group
                << " " << name;
        }
    }
    EXPECT_TRUE(form().find("label", "dev (0)"));
}

TEST_F(AccessibilityTest, theSliderTellsItsValueAndTakesSteps) {
    const auto slider = control("LEFT", "slider", "Icon size");
    EXPECT_EQ(slider.value(), 48);
    EXPECT_EQ(slider.value(QStringLiteral("MinimumValue")), 32);
    EXPECT_EQ(slider.value(QStringLiteral("MaximumValue")), 80);
    EXPECT_EQ(slider.value(QStringLiteral("MinimumIncrement")), 4);
    slider.setValue(63);
    EXPECT_TRUE(eventually([&] { return stored(leftKey, "iconSize") == QJsonValue(64); }));
    EXPECT_EQ(slider.value(), 64);
}

TEST_F(AccessibilityTest, switchesSegmentsTilesAndButtonsWorkFromIt) {
    const auto running = control("LEFT", "check box", "Show running apps");
    running.act();
    EXPECT_TRUE(eventually([&] { return stored(leftKey, "showRunning") == QJsonValue(false); }));
    EXPECT_FALSE(running.has(State::checked));
    const auto big = control("LEFT", "radio button", "Big");
    big.act();
    EXPECT_TRUE(
        eventually([&] { return stored(leftKey, "magnification") == QJsonValue(QStringLiteral("big")); }));
    EXPECT_TRUE(big.has(State::checked));
    EXPECT_FALSE(control("LEFT", "radio button", "Subtle").has(State::checked));
    control("LEFT", "radio button", "Shelf").act();
    EXPECT_TRUE(eventually([&] { return stored(leftKey, "style") == QJsonValue(QStringLiteral("shelf")); }));
    EXPECT_EQ(stored(rightKey, "style"), QJsonValue(QStringLiteral("glass")));
}

TEST_F(AccessibilityTest, aDockThatIsOffTellsOfNoMoreThanItsSwitch) {
    const auto shown = control("LEFT", "check box", "Show a Dock on this screen");
    shown.act();
    EXPECT_TRUE(eventually([&] { return docks().size() == 1; }));
    EXPECT_FALSE(shown.has(State::checked));
    const auto section = form().find([](const AccessibleNode& node) { return node.name() == "LEFT"; });
    ASSERT_TRUE(section);
    Lines showing;
    static_cast<void>(section->find([&](const AccessibleNode& node) {
        if (node.role() != "label" && !node.name().empty() && node.has(State::showing)) {
            showing.push_back(node.name());
        }
        return false;
    }));
    EXPECT_EQ(showing, Lines{"Show a Dock on this screen"});
}

} // namespace quillary::test
