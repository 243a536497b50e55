#include "app/settings/ChoiceGroup.h"
#include "app/settings/StepSlider.h"
#include "app/settings/StyleTile.h"
#include "tests/app/SettingsFixture.h"

#include <QFont>
#include <QRadioButton>

#include <tuple>

namespace quillary::test {
namespace {

constexpr QSize defaultSize(560, 640);
constexpr QSize leastSize(520, 480);

/// The settings window with the welcome banner and a large desktop font.
class SettingsLargeFontDesktop : public SettingsDesktop {
protected:
    void TearDown() override {
        settings.reset();
        QApplication::setFont(m_usual);
        SettingsDesktop::TearDown();
    }

    static void setFont(double points) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSizeF(points);
        QApplication::setFont(font);
    }
    static void settle() {
        // Sizes go up from texts to the form, one turn of the loop for each level.
        for (int turns = 0; turns < 10; ++turns) {
            QApplication::processEvents();
        }
    }
    void openAt(QSize size) {
        open(SettingsWindow::Form::welcome);
        view().resize(size);
        settle();
        ASSERT_EQ(view().size(), size);
    }

    void expectNoTextIsCut() const {
        int labels = 0;
        for (const auto* label : view().widget()->findChildren<QLabel*>()) {
            if (!label->isVisible()) {
                continue;
            }
            ++labels;
            const std::string text = label->text().toStdString();
            const int needed =
                label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            EXPECT_GE(label->height(), needed) << text;
            const QSize least = label->minimumSizeHint();
            // A group's title is elided to the group's width instead.
            const bool elided = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
            EXPECT_TRUE(elided || label->width() >= least.width()) << text;
            expectInReach(*label, text);
        }
        EXPECT_GT(labels, 20);
    }
    void expectAllControlsInReach() const {
        int controls = 0;
        for (const auto* widget : view().widget()->findChildren<QWidget*>()) {
            const bool control = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                 qobject_cast<const StepSlider*>(widget) != nullptr ||
                                 qobject_cast<const ChoiceGroup*>(widget) != nullptr;
            if (!control || !widget->isVisible()) {
                continue;
            }
            ++controls;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const std::string name =
                (button != nullptr ? button->text() : widget->accessibleName()).toStdString();
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << name;
            const int needed = widget->hasHeightForWidth() ? widget->heightForWidth(widget->width())
                                                           : widget->minimumSizeHint().height();
            EXPECT_GE(widget->height(), needed) << name;
            if (qobject_cast<const QRadioButton*>(widget) != nullptr) {
                EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(button->text())) << name;
            }
            expectInReach(*widget, name);
        }
        EXPECT_GT(controls, 40);
    }

private:
    /// No widget around it cuts it off, and what of the form is wider or higher than the viewport can be
    /// scrolled to.
    void expectInReach(const QWidget& widget, const std::string& name) const {
        const QWidget* const column = view().widget();
        for (const QWidget* around = widget.parentWidget();; around = around->parentWidget()) {
            const QRect place(widget.mapTo(around, QPoint()), widget.size());
            EXPECT_TRUE(around->rect().contains(place)) << name;
            if (around == column) {
                const QWidget* const viewport = view().viewport();
                EXPECT_LT(place.right(), viewport->width() + travel(*view().horizontalScrollBar())) << name;
                EXPECT_LT(place.bottom(), viewport->height() + travel(*view().verticalScrollBar())) << name;
                return;
            }
        }
    }
    /// How far the user can scroll with the bar, points.
    static int travel(const QScrollBar& bar) { return bar.isVisible() ? bar.maximum() : 0; }

    QFont m_usual = QApplication::font();
};

using PointsAndSize = std::tuple<double, QSize>;

class SettingsLargeFontTest : public SettingsLargeFontDesktop,
                              public testing::WithParamInterface<PointsAndSize> {
protected:
    static double points() { return std::get<0>(GetParam()); }
    static QSize size() { return std::get<1>(GetParam()); }
};

TEST_P(SettingsLargeFontTest, noTextIsCut) {
    setFont(points());
    openAt(size());
    expectNoTextIsCut();
}

TEST_P(SettingsLargeFontTest, allControlsAreInReach) {
    setFont(points());
    openAt(size());
    expectAllControlsInReach();
}

TEST_P(SettingsLargeFontTest, aFontThatGrowsWhileTheWindowIsOpenCutsNothing) {
    setFont(10);
    openAt(size());
    setFont(points());
    settle();
    expectNoTextIsCut();
    expectAllControlsInReach();
}

using SettingsLargeFontFormTest = SettingsLargeFontDesktop;

TEST_F(SettingsLargeFontFormTest, aFormWiderThanTheWindowScrollsSideways) {
    setFont(40);
    openAt(leastSize);
    EXPECT_GT(view().widget()->width(), view().viewport()->width());
    expectNoTextIsCut();
    expectAllControlsInReach();
}

TEST_F(SettingsLargeFontFormTest, rowsThatComeBackAreInReachAtOnce) {
    setFont(24);
    openAt(leastSize);
    const int height = view().widget()->height();
    clickOn(switchIn("LEFT", "Show a Dock on this screen"));
    EXPECT_LT(view().widget()->height(), height);
    clickOn(switchIn("LEFT", "Show a Dock on this screen"));
    EXPECT_EQ(view().widget()->height(), height);
    expectNoTextIsCut();
    expectAllControlsInReach();
}

TEST_F(SettingsLargeFontFormTest, aFormFromRightToLeftCutsNothing) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    setFont(24);
    openAt(leastSize);
    expectNoTextIsCut();
    expectAllControlsInReach();
    const auto& memory = switchIn("RAM on Dock", "Show which apps are eating memory");
    EXPECT_LT(memory.mapTo(&view(), memory.rect().center()).x(), view().width() / 2);
    const auto& glass = control<StyleTile>("LEFT", "Glass");
    const auto& pill = control<StyleTile>("LEFT", "Pill");
    EXPECT_GT(glass.x(), pill.x());
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

std::string nameOf(const testing::TestParamInfo<PointsAndSize>& tested) {
    const auto& [points, size] = tested.param;
    return std::to_string(static_cast<int>(points)) + "ptAt" + std::to_string(size.width());
}

INSTANTIATE_TEST_SUITE_P(SettingsFonts, SettingsLargeFontTest,
                         testing::Combine(testing::Values(12.0, 16.0, 24.0),
                                          testing::Values(defaultSize, leastSize)),
                         nameOf);

} // namespace
} // namespace quillary::test
