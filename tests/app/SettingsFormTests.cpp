#include "app/settings/SegmentedPicker.h"
#include "app/settings/StepSlider.h"
#include "app/settings/StylePicker.h"
#include "app/settings/StyleTile.h"
#include "tests/app/ContrastOf.h"
#include "tests/app/SettingsFixture.h"

#include <QPushButton>
#include <QRadioButton>

namespace quillary::test {
namespace {

using Texts = std::vector<std::string>;

class SettingsFormTest : public SettingsDesktop {
protected:
    [[nodiscard]] QPushButton& addButton() const { return *group("LEFT").findChild<QPushButton*>(); }
    DockConfig left() const { return *manager->settings().dock(leftKey); }
};

TEST_F(SettingsFormTest, hasItsGroupsInOrder) {
    open();
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "LEFT", "RIGHT", "General"}));
}

TEST_F(SettingsFormTest, greetsWhenAskedTo) {
    open(SettingsWindow::Form::welcome);
    EXPECT_EQ(titles(), (Texts{"", "RAM on Dock", "LEFT", "RIGHT", "General"}));
    EXPECT_EQ(texts(""),
              (Texts{"Welcome — every screen now has its own Dock.",
                     "We copied your macOS Dock to start and tucked the original away — turn that off under "
                     "General, or just quit Quillary to get it back. Drag apps or folders from Finder onto a "
                     "Dock to add them, drag icons to reorder, and right-click any Dock for options."}));
}

TEST_F(SettingsFormTest, withoutScreensOnlyTheProgramsOwnGroupsAreSeen) {
    platform.screens().connected.clear();
    open();
    EXPECT_EQ(titles(), (Texts{"RAM on Dock", "General"}));
}

TEST_F(SettingsFormTest, saysWhatItIsToSay) {
    platform.systemDock().pinned = {"/a", "/b", "/c"};
    platform.bundle = {.shortVersion = "1.2", .build = "34"};
    open();
    EXPECT_EQ(texts("RAM on Dock"),
              (Texts{"RAM on Dock", "Show which apps are eating memory",
                     "A yellow dot under an app means it's heavy; red means it's the reason your Mac feels "
                     "slow. Hover to see how much memory it uses, right-click to quit it."}));
    EXPECT_EQ(texts("LEFT"), (Texts{"LEFT",
                                    "Show a Dock on this screen",
                                    "Position",
                                    "Bottom",
                                    "Left",
                                    "Right",
                                    "Top",
                                    "Style",
                                    "Glass",
                                    "Pill",
                                    "Bubbles",
                                    "Minimal",
                                    "Shelf",
                                    "Icon size",
                                    "Magnification",
                                    "Off",
                                    "Subtle",
                                    "Big",
                                    "Bounce when opening apps",
                                    "Show running apps",
                                    "Auto-hide (show when the pointer touches the edge)",
                                    "Add apps from the macOS Dock",
                                    "3 pinned"}));
    EXPECT_EQ(texts("General"), (Texts{"General", "Hide the macOS Dock (Quillary replaces it)",
                                       "Launch Quillary at login", "Version", "1.2 (34)"}));
}

TEST_F(SettingsFormTest, theControlsShowWhatIsStored) {
    start();
    configure([](DockConfig& config) {
        config.edge = DockEdge::right;
        config.style = DockStyle::minimal;
        config.iconSize = 64;
        config.magnification = Magnification::big;
        config.bounceOnLaunch = false;
        config.showRunning = false;
        config.autoHide = true;
    });
    manager->setShowMemory(false);
    manager->setHideSystemDock(false);
    open();
    EXPECT_TRUE(switchIn("LEFT", "Show a Dock on this screen").isChecked());
    EXPECT_EQ(control<SegmentedPicker>("LEFT", "Position").current(), 2);
    EXPECT_EQ(control<StylePicker>("LEFT", "Style").current(), 3);
    EXPECT_EQ(control<StepSlider>("LEFT", "Icon size").value(), 64);
    EXPECT_EQ(control<SegmentedPicker>("LEFT", "Magnification").current(), 2);
    EXPECT_FALSE(switchIn("LEFT", "Bounce when opening apps").isChecked());
    EXPECT_FALSE(switchIn("LEFT", "Show running apps").isChecked());
    EXPECT_TRUE(switchIn("LEFT", "Auto-hide (show when the pointer touches the edge)").isChecked());
    EXPECT_FALSE(switchIn("RAM on Dock", "Show which apps are eating memory").isChecked());
    EXPECT_FALSE(switchIn("General", "Hide the macOS Dock (Quillary replaces it)").isChecked());
    EXPECT_EQ(control<SegmentedPicker>("RIGHT", "Position").current(), 0);
}

TEST_F(SettingsFormTest, openingAndRefreshingSavesNothing) {
    start();
    configure([](DockConfig& config) { config.iconSize = 37.5; });
    countSaves();
    open();
    Q_EMIT model().configChanged();
    Q_EMIT model().screenNameChanged();
    Q_EMIT manager->modelsChanged();
    Q_EMIT manager->showMemorySettingChanged();
    Q_EMIT manager->hideSystemDockChanged();
    view().close();
    open();
    EXPECT_EQ(saves(), 0);
    EXPECT_EQ(left().iconSize, 37.5);
    EXPECT_EQ(control<StepSlider>("LEFT", "Icon size").value(), 37.5);
    EXPECT_EQ(platform.loginItem().requests, 0);
}

TEST_F(SettingsFormTest, eachControlWritesItsOneFieldAndSavesOnce) {
    open();
    countSaves();
    DockConfig expected = left();
    const auto written = [&](const char* what) {
        EXPECT_EQ(left(), expected) << what;
        EXPECT_EQ(model().config(), expected) << what;
        EXPECT_EQ(saves(), 1) << what;
        platform.log().lines.clear();
    };
    clickOn(*control<SegmentedPicker>("LEFT", "Position").buttons()[1]);
    expected.edge = DockEdge::left;
    written("position");
    clickOn(control<StyleTile>("LEFT", "Shelf"));
    expected.style = DockStyle::shelf;
    written("style");
    type(control<StepSlider>("LEFT", "Icon size"), Qt::Key_Right);
    expected.iconSize = 52;
    written("icon size");
    clickOn(*control<SegmentedPicker>("LEFT", "Magnification").buttons()[0]);
    expected.magnification = Magnification::off;
    written("magnification");
    clickOn(switchIn("LEFT", "Bounce when opening apps"));
    expected.bounceOnLaunch = false;
    written("bounce");
    clickOn(switchIn("LEFT", "Show running apps"));
    expected.showRunning = false;
    written("running");
    clickOn(switchIn("LEFT", "Auto-hide (show when the pointer touches the edge)"));
    expected.autoHide = true;
    written("auto-hide");
    clickOn(switchIn("LEFT", "Show a Dock on this screen"));
    expected.enabled = false;
    written("enabled");
    EXPECT_EQ(manager->settings().dock(rightKey)->edge, DockEdge::bottom);
}

TEST_F(SettingsFormTest, theSwitchesOfTheProgramWorkThroughTheManager) {
    open();
    countSaves();
    clickOn(switchIn("RAM on Dock", "Show which apps are eating memory"));
    EXPECT_FALSE(manager->showMemorySetting());
    EXPECT_FALSE(model().showMemory());
    EXPECT_EQ(saves(), 1);
    clickOn(switchIn("General", "Hide the macOS Dock (Quillary replaces it)"));
    EXPECT_FALSE(manager->hideSystemDock());
    EXPECT_FALSE(switchIn("General", "Hide the macOS Dock (Quillary replaces it)").isChecked());
}

TEST_F(SettingsFormTest, aClickOnTheWordsWorksTheSwitch) {
    open();
    auto& words = *switchIn("LEFT", "Show running apps").parentWidget();
    clickOn(words, {40, words.height() / 2.0});
    EXPECT_FALSE(left().showRunning);
}

TEST_F(SettingsFormTest, draggingTheSizeSavesEachStepAsItHappens) {
    open();
    configure([](DockConfig& config) { config.iconSize = 32; });
    countSaves();
    auto& slider = control<StepSlider>("LEFT", "Icon size");
    mouse(slider, QEvent::MouseButtonPress, {13, 15});
    for (int x = 13; x <= 300; ++x) {
        mouse(slider, QEvent::MouseMove, {static_cast<double>(x), 15});
        EXPECT_EQ(slider.value(), left().iconSize);
    }
    EXPECT_EQ(saves(), 12);
    EXPECT_EQ(left().iconSize, 80);
}

TEST_F(SettingsFormTest, aChangeFromElsewhereShowsAtOnce) {
    open();
    configure([](DockConfig& config) {
        config.style = DockStyle::pill;
        config.items = {"/a"};
    });
    EXPECT_TRUE(control<StyleTile>("LEFT", "Pill").isChecked());
    EXPECT_FALSE(control<StyleTile>("LEFT", "Glass").isChecked());
    EXPECT_EQ(texts("LEFT").back(), "1 pinned");
    manager->setShowMemory(false);
    EXPECT_FALSE(switchIn("RAM on Dock", "Show which apps are eating memory").isChecked());
    manager->setHideSystemDock(false);
    EXPECT_FALSE(switchIn("General", "Hide the macOS Dock (Quillary replaces it)").isChecked());
}

TEST_F(SettingsFormTest, aDockThatIsOffHasOnlyItsSwitch) {
    open();
    auto& enabled = switchIn("LEFT", "Show a Dock on this screen");
    enabled.setFocus();
    const int tall = group("LEFT").height();
    clickOn(enabled);
    EXPECT_EQ(manager->panel(leftKey), nullptr);
    EXPECT_EQ(texts("LEFT"), (Texts{"LEFT", "Show a Dock on this screen"}));
    // At once: the empty box of the rows that have gone must not be seen.
    EXPECT_LT(group("LEFT").height(), tall / 4);
    EXPECT_TRUE(enabled.hasFocus());
    clickOn(enabled);
    EXPECT_NE(manager->panel(leftKey), nullptr);
    EXPECT_EQ(texts("LEFT").size(), 23U);
}

TEST_F(SettingsFormTest, theFormFollowsTheRowsOfADockAtOnce) {
    open();
    const int tall = group("LEFT").height();
    const int column = view().widget()->height();
    DockConfig config = model().config();
    config.enabled = false;
    model().setConfig(config);
    EXPECT_LT(group("LEFT").height(), tall / 4);
    const int shrunk = view().widget()->height();
    EXPECT_LT(shrunk, column - tall / 2);
    config.enabled = true;
    model().setConfig(config);
    EXPECT_EQ(group("LEFT").height(), tall);
    EXPECT_GT(view().widget()->height(), shrunk + tall / 2);
}

TEST_F(SettingsFormTest, addsWhatTheSystemsDockHasAndNothingTheSecondTime) {
    platform.systemDock().pinned = {"/a", "/b"};
    open();
    configure([](DockConfig& config) { config.items = {"/b", "/x"}; });
    platform.systemDock().pinned = {"/a", "/b", "/a", "/c"};
    clickOn(addButton());
    EXPECT_EQ(left().items, (Texts{"/x", "/a", "/b", "/c"}));
    EXPECT_EQ(texts("LEFT").back(), "4 pinned");
    clickOn(addButton());
    EXPECT_EQ(left().items, (Texts{"/x", "/a", "/b", "/c"}));
    EXPECT_EQ(manager->settings().dock(rightKey)->items, (Texts{"/a", "/b"}));
}

TEST_F(SettingsFormTest, aDockWithoutItemsSaysSo) {
    platform.systemDock().pinned.clear();
    open();
    EXPECT_EQ(texts("LEFT").back(), "0 pinned");
}

TEST_F(SettingsFormTest, theTabulatorGoesThroughAllControlsInTheOrderInWhichTheyAreSeen) {
    platform.screens().connected = {screenNamed("RIGHT", rightFrame)};
    open();
    platform.screens().set({screenNamed("LEFT", leftFrame), screenNamed("RIGHT", rightFrame)});
    QApplication::processEvents();
    view().setFocus();
    Texts names;
    for (int i = 0; i < 40; ++i) {
        type(QApplication::focusWidget() != nullptr ? *QApplication::focusWidget() : view(), Qt::Key_Tab);
        const QWidget* at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr);
        const auto* button = qobject_cast<const QAbstractButton*>(at);
        const std::string name = (button != nullptr ? button->text() : at->accessibleName()).toStdString();
        if (!names.empty() && name == names.front() && at->parentWidget() != nullptr && i > 10) {
            break;
        }
        names.push_back(name);
    }
    const Texts dock{"Show a Dock on this screen",
                     "Bottom",
                     "Glass",
                     "Icon size",
                     "Subtle",
                     "Bounce when opening apps",
                     "Show running apps",
                     "Auto-hide (show when the pointer touches the edge)",
                     "Add apps from the macOS Dock"};
    Texts expected{"Show which apps are eating memory"};
    expected.insert(expected.end(), dock.begin(), dock.end());
    expected.insert(expected.end(), dock.begin(), dock.end());
    expected.insert(expected.end(),
                    {"Hide the macOS Dock (Quillary replaces it)", "Launch Quillary at login"});
    EXPECT_EQ(names, expected);
}

TEST_F(SettingsFormTest, aManagerThatIsGoneIsAskedNothing) {
    open();
    auto& memory = switchIn("RAM on Dock", "Show which apps are eating memory");
    auto& enabled = switchIn("LEFT", "Show a Dock on this screen");
    auto& hide = switchIn("General", "Hide the macOS Dock (Quillary replaces it)");
    auto& button = addButton();
    manager.reset();
    clickOn(memory);
    clickOn(enabled);
    clickOn(hide);
    clickOn(button);
    EXPECT_TRUE(enabled.isChecked());
}

/// The heights of a group's separators, device pixels.
std::vector<int> separatorHeights(FormGroup& group, double ratio) {
    const QImage image = pictureOf(group, ratio);
    const int middle = image.width() / 2;
    const int border = static_cast<int>(5 * ratio);
    const QRgb plain = image.pixel(middle, border);
    std::vector<int> heights;
    bool inside = false;
    for (int y = border; y < image.height() - border; ++y) {
        const bool line = image.pixel(middle, y) != plain;
        if (line && !inside) {
            heights.push_back(0);
        }
        inside = line;
        if (line) {
            ++heights.back();
        }
    }
    return heights;
}

TEST(FormGroupTest, separatorsAreOnePixelAtEveryScale) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        FormGroup group({});
        for (int height : {31, 40, 33, 37, 42, 30}) {
            auto* row = new QWidget;
            row->setFixedHeight(height);
            group.addRow(row);
        }
        group.resize(300, group.sizeHint().height());
        group.layOut();
        EXPECT_EQ(separatorHeights(group, ratio), std::vector<int>(5, 1)) << ratio;
    }
}

} // namespace
} // namespace quillary::test
