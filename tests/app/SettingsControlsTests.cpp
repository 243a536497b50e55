#include "app/settings/ControlAccessibility.h"
#include "app/settings/FormColours.h"
#include "app/settings/SegmentedPicker.h"
#include "app/settings/StepSlider.h"
#include "app/settings/Switch.h"
#include "tests/app/ContrastOf.h"
#include "tests/app/SettingsFixture.h"

#include <QAccessible>
#include <QRadioButton>
#include <QWheelEvent>

namespace quillary::test {
namespace {

using Numbers = std::vector<int>;

QAccessibleInterface& accessible(QObject& object) {
    return *QAccessible::queryAccessibleInterface(&object);
}

/// Before any control is made, as in the form.
class ControlTest : public testing::Test {
protected:
    ControlTest() { installControlAccessibility(); }
};

class SwitchTest : public ControlTest {
protected:
    SwitchTest() {
        QObject::connect(&control, &Switch::switched, &control, [this](bool on) { wishes.push_back(on); });
        control.resize(control.sizeHint());
    }
    Switch control{QStringLiteral("Show it")};
    std::vector<bool> wishes;
};

TEST_F(SwitchTest, showsAStateWithoutAskingForIt) {
    control.setChecked(true);
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SwitchTest, pointerAndKeysAskForTheOtherStateAndLeaveItToTheOwner) {
    clickOn(control);
    EXPECT_EQ(wishes, std::vector<bool>{true});
    EXPECT_FALSE(control.isChecked());
    control.setChecked(true);
    type(control, Qt::Key_Space);
    type(control, Qt::Key_Return);
    EXPECT_EQ(wishes, (std::vector<bool>{true, false, false}));
}

TEST_F(SwitchTest, whatIsOffStandsOutFromItsGroup) {
    for (const Shade shade : {Shade::light, Shade::dark}) {
        const QPalette palette = desktopColours(shade);
        control.setPalette(palette);
        const QColor track = pictureOf(control).pixelColor(control.width() * 3 / 4, control.height() / 2);
        EXPECT_GE(contrast(track, FormColours::of(palette).group), 3) << static_cast<int>(shade);
    }
}

TEST_F(SwitchTest, aButtonReleasedElsewhereAsksForNothing) {
    mouse(control, QEvent::MouseButtonPress, {10, 10});
    mouse(control, QEvent::MouseMove, {300, 10});
    mouse(control, QEvent::MouseButtonRelease, {300, 10});
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SwitchTest, takesClicksOnTheWholeOfIt) {
    clickOn(control, {1, 1});
    clickOn(control, {control.width() - 1.0, control.height() - 1.0});
    EXPECT_EQ(wishes, (std::vector<bool>{true, true}));
}

TEST_F(SwitchTest, arrowKeysAreLeftToTheForm) {
    for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&control, &press);
        EXPECT_FALSE(press.isAccepted());
    }
}

TEST_F(SwitchTest, isACheckBoxToAssistiveTechnology) {
    auto& interface = accessible(control);
    EXPECT_EQ(interface.role(), QAccessible::CheckBox);
    EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Show it"));
    EXPECT_TRUE(interface.state().checkable);
    EXPECT_TRUE(interface.state().focusable);
    EXPECT_FALSE(interface.state().checked);
    control.setChecked(true);
    EXPECT_TRUE(interface.state().checked);
    interface.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(wishes, std::vector<bool>{false});
}

class PickerTest : public ControlTest {
protected:
    PickerTest() {
        QObject::connect(&picker, &ChoiceGroup::chosen, &picker, [this](int index) {
            wishes.push_back(index);
            picker.setCurrent(index);
        });
        picker.show();
        picker.activateWindow();
        QApplication::processEvents();
        picker.setCurrent(1);
    }
    QRadioButton& segment(std::size_t index) { return *picker.buttons().at(index); }
    [[nodiscard]] std::vector<bool> shown() const {
        std::vector<bool> result;
        for (const auto* button : picker.buttons()) {
            result.push_back(button->isChecked());
        }
        return result;
    }
    SegmentedPicker picker{QStringLiteral("Size"),
                           {QStringLiteral("Off"), QStringLiteral("Subtle"), QStringLiteral("Big")}};
    Numbers wishes;
};

TEST_F(PickerTest, showsAChoiceWithoutAskingForIt) {
    EXPECT_EQ(shown(), (std::vector<bool>{false, true, false}));
    EXPECT_TRUE(wishes.empty());
}

TEST_F(PickerTest, aClickAsksForItsSegment) {
    clickOn(segment(2));
    EXPECT_EQ(wishes, Numbers{2});
    EXPECT_EQ(shown(), (std::vector<bool>{false, false, true}));
}

TEST_F(PickerTest, arrowKeysChooseTheNeighbourAndStopAtTheEnds) {
    segment(1).setFocus();
    type(segment(1), Qt::Key_Right);
    EXPECT_TRUE(segment(2).hasFocus());
    type(segment(2), Qt::Key_Right);
    type(segment(2), Qt::Key_Left);
    type(segment(1), Qt::Key_Up);
    type(segment(0), Qt::Key_Left);
    type(segment(0), Qt::Key_End);
    type(segment(2), Qt::Key_Home);
    type(segment(0), Qt::Key_Down);
    EXPECT_EQ(wishes, (Numbers{2, 1, 0, 2, 0, 1}));
}

TEST_F(PickerTest, arrowKeysGoTheOtherWayWhereTextRunsToTheLeft) {
    picker.setLayoutDirection(Qt::RightToLeft);
    segment(1).setFocus();
    type(segment(1), Qt::Key_Right);
    EXPECT_EQ(wishes, Numbers{0});
}

TEST_F(PickerTest, theTabulatorStopsAtTheCurrentSegmentOnly) {
    EXPECT_EQ(segment(0).focusPolicy(), Qt::ClickFocus);
    EXPECT_EQ(segment(1).focusPolicy(), Qt::StrongFocus);
    picker.setCurrent(0);
    EXPECT_EQ(segment(0).focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(segment(1).focusPolicy(), Qt::ClickFocus);
}

TEST_F(PickerTest, isANamedGroupOfRadioButtonsToAssistiveTechnology) {
    auto& interface = accessible(picker);
    EXPECT_EQ(interface.role(), QAccessible::Grouping);
    EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Size"));
    ASSERT_EQ(interface.childCount(), 3);
    auto& big = *interface.child(2);
    EXPECT_EQ(big.role(), QAccessible::RadioButton);
    EXPECT_EQ(big.text(QAccessible::Name), QStringLiteral("Big"));
    EXPECT_TRUE(big.state().focusable);
    EXPECT_FALSE(big.state().checked);
    big.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(wishes, Numbers{2});
    EXPECT_TRUE(big.state().checked);
}

/// Text in a font this large has pixels that it covers wholly.
TEST_F(PickerTest, segmentsThatAreNotChosenCanBeRead) {
    for (const Shade shade : {Shade::light, Shade::dark}) {
        picker.setPalette(desktopColours(shade));
        picker.setCurrent(0);
        for (QRadioButton* segment : picker.findChildren<QRadioButton*>()) {
            QFont large = segment->font();
            large.setPixelSize(48);
            large.setBold(true);
            segment->setFont(large);
        }
        picker.resize(picker.sizeHint());
        const QRect segment = picker.findChildren<QRadioButton*>().at(1)->geometry();
        const QImage image = pictureOf(picker);
        const QColor groove = image.pixelColor(segment.left() + 4, segment.center().y());
        double best = 1;
        for (int y = segment.top() + 4; y < segment.bottom() - 4; ++y) {
            for (int x = segment.left() + 4; x < segment.right() - 4; ++x) {
                best = std::max(best, contrast(image.pixelColor(x, y), groove));
            }
        }
        EXPECT_GE(best, 4.5) << static_cast<int>(shade);
    }
}

class SliderTest : public ControlTest {
protected:
    SliderTest() {
        QObject::connect(&slider, &StepSlider::chosen, &slider, [this](int value) {
            wishes.push_back(value);
            slider.setValue(value);
        });
        slider.resize(slider.sizeHint());
    }
    /// 32 has its knob's middle at 13, 80 at 215: 202 points for 48.
    static QPointF at(double value) { return {13 + (value - 32) / 48 * 202, 15}; }

    StepSlider slider{QStringLiteral("Icon size"), {.least = 32, .most = 80, .step = 4}};
    Numbers wishes;
};

TEST_F(SliderTest, is220PointsWideWithinItsFocusRing) {
    EXPECT_EQ(slider.sizeHint().width(), 228);
}

TEST_F(SliderTest, showsAnyValueWithoutAskingForIt) {
    for (const double value : {48.0, 37.5, 20.0, 200.0}) {
        slider.setValue(value);
        EXPECT_EQ(slider.value(), value);
    }
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SliderTest, draggingYieldsEveryMultipleOf4Once) {
    slider.setValue(32);
    mouse(slider, QEvent::MouseButtonPress, at(32));
    for (int quarters = 4 * 32; quarters <= 4 * 90; ++quarters) {
        mouse(slider, QEvent::MouseMove, at(quarters / 4.0));
    }
    mouse(slider, QEvent::MouseButtonRelease, at(90));
    EXPECT_EQ(wishes, (Numbers{36, 40, 44, 48, 52, 56, 60, 64, 68, 72, 76, 80}));
    wishes.clear();
    mouse(slider, QEvent::MouseButtonPress, at(80));
    mouse(slider, QEvent::MouseMove, at(-500));
    mouse(slider, QEvent::MouseButtonRelease, at(-500));
    EXPECT_EQ(wishes, Numbers{32});
}

TEST_F(SliderTest, holdingTheKnobOfAnOddValueChangesNothing) {
    slider.setValue(37.5);
    clickOn(slider, at(37.5) + QPointF(5, 2));
    EXPECT_TRUE(wishes.empty());
    EXPECT_EQ(slider.value(), 37.5);
}

TEST_F(SliderTest, aClickBesideTheKnobBringsItThere) {
    slider.setValue(32);
    clickOn(slider, at(61));
    EXPECT_EQ(wishes, Numbers{60});
}

TEST_F(SliderTest, theKnobDoesNotJumpUnderThePointerThatTakesIt) {
    slider.setValue(48);
    mouse(slider, QEvent::MouseButtonPress, at(48) + QPointF(8, 0));
    mouse(slider, QEvent::MouseMove, at(50) + QPointF(7, 0));
    EXPECT_TRUE(wishes.empty());
    mouse(slider, QEvent::MouseMove, at(50) + QPointF(9, 0));
    EXPECT_EQ(wishes, Numbers{52});
}

TEST_F(SliderTest, movingWithoutTheButtonDoesNothing) {
    mouse(slider, QEvent::MouseMove, at(60));
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SliderTest, keysGoFromStepToStep) {
    slider.setValue(48);
    type(slider, Qt::Key_Right);
    type(slider, Qt::Key_Up);
    type(slider, Qt::Key_Left);
    type(slider, Qt::Key_Down);
    type(slider, Qt::Key_PageUp);
    type(slider, Qt::Key_PageDown);
    type(slider, Qt::Key_End);
    type(slider, Qt::Key_Right);
    type(slider, Qt::Key_Home);
    type(slider, Qt::Key_Left);
    EXPECT_EQ(wishes, (Numbers{52, 56, 52, 48, 60, 48, 80, 32}));
}

TEST_F(SliderTest, keysLeaveAnOddValueForTheNextStep) {
    slider.setValue(37.5);
    type(slider, Qt::Key_Right);
    slider.setValue(37.5);
    type(slider, Qt::Key_Left);
    slider.setValue(200);
    type(slider, Qt::Key_Left);
    slider.setValue(20);
    type(slider, Qt::Key_Right);
    EXPECT_EQ(wishes, (Numbers{40, 36, 76, 36}));
}

TEST_F(SliderTest, theWheelIsLeftToTheForm) {
    slider.setValue(48);
    QWheelEvent wheel(at(48), at(48), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_TRUE(wishes.empty());
}

TEST_F(SliderTest, hasItsValueAndRangeForAssistiveTechnology) {
    slider.setValue(37.5);
    auto& interface = accessible(slider);
    EXPECT_EQ(interface.role(), QAccessible::Slider);
    EXPECT_EQ(interface.text(QAccessible::Name), QStringLiteral("Icon size"));
    auto* value = interface.valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 37.5);
    EXPECT_EQ(value->minimumValue().toDouble(), 32);
    EXPECT_EQ(value->maximumValue().toDouble(), 80);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 4);
    value->setCurrentValue(62.5);
    value->setCurrentValue(1000);
    value->setCurrentValue(QStringLiteral("wide"));
    EXPECT_EQ(wishes, (Numbers{64, 80}));
}

} // namespace
} // namespace quillary::test
