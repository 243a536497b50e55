#include "app/settings/StyleTile.h"
#include "tests/app/SettingsFixture.h"

namespace quillary::test {
namespace {

class SettingsWindowTest : public SettingsDesktop {};

TEST_F(SettingsWindowTest, hasItsTitleAndSizes) {
    open();
    EXPECT_EQ(view().windowTitle(), QStringLiteral("Quillary Settings"));
    EXPECT_EQ(view().size(), QSize(560, 640));
    EXPECT_EQ(view().minimumSize(), QSize(520, 480));
    EXPECT_EQ(view().maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

TEST_F(SettingsWindowTest, everythingFitsAtTheLeastWidth) {
    open();
    view().resize(520, 480);
    QApplication::processEvents();
    EXPECT_EQ(view().widget()->width(), view().viewport()->width());
    for (const auto* tile : group("LEFT").findChildren<StyleTile*>()) {
        EXPECT_EQ(tile->size(), tile->sizeHint());
        EXPECT_LE(tile->mapTo(&group("LEFT"), QPoint(tile->width(), 0)).x(), group("LEFT").width() - 8);
    }
}

TEST_F(SettingsWindowTest, closingHidesItAndTheSameComesBackWithItsState) {
    open();
    QWidget* const first = &view();
    view().verticalScrollBar()->setValue(100);
    view().close();
    EXPECT_FALSE(first->isVisible());
    open(SettingsWindow::Form::welcome);
    EXPECT_EQ(settings->window(), first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(view().verticalScrollBar()->value(), 100);
    EXPECT_EQ(titles().front(), "RAM on Dock");
}

TEST_F(SettingsWindowTest, theBannerOfTheFirstShowingStays) {
    open(SettingsWindow::Form::welcome);
    view().close();
    open(SettingsWindow::Form::normal);
    EXPECT_EQ(titles().front(), "");
}

TEST_F(SettingsWindowTest, itDoesNothingOnceTheManagerIsGone) {
    start();
    SettingsWindow window(*manager);
    manager.reset();
    window.show(SettingsWindow::Form::normal);
    EXPECT_EQ(window.window(), nullptr);
}

TEST_F(SettingsWindowTest, itFollowsTheDesktopsColoursAndFontWhileItIsOpen) {
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
    QApplication::setPalette(QPalette(QColor(240, 240, 243)));
    open();
    EXPECT_GT(view().grab().toImage().pixelColor(3, 3).lightness(), 200);
    QApplication::setPalette(QPalette(QColor(32, 32, 36)));
    QApplication::processEvents();
    const QImage dark = view().grab().toImage();
    EXPECT_LT(dark.pixelColor(3, 3).lightness(), 60);
    const QPoint inGroup = group("RAM on Dock").mapTo(&view(), QPoint(400, 44));
    EXPECT_LT(dark.pixelColor(inGroup).lightness(), 80);
    const int height = view().widget()->height();
    QFont large = font;
    large.setPointSizeF(2 * (font.pointSizeF() > 0 ? font.pointSizeF() : 9));
    QApplication::setFont(large);
    // Sizes go up from texts to the form, one turn of the loop for each level.
    for (int turns = 0; turns < 10; ++turns) {
        QApplication::processEvents();
    }
    EXPECT_GT(view().widget()->height(), height + 100);
    QApplication::setFont(font);
    QApplication::setPalette(palette);
}

TEST_F(SettingsWindowTest, theTilesDocksFollowTheDesktopsColours) {
    const QPalette palette = QApplication::palette();
    const auto tile = [this] { return control<StyleTile>("LEFT", "Pill").grab().toImage(); };
    QApplication::setPalette(QPalette(QColor(240, 240, 243)));
    open();
    const QImage light = tile();
    QApplication::setPalette(QPalette(QColor(32, 32, 36)));
    QApplication::processEvents();
    const QImage followed = tile();
    settings.reset();
    open();
    EXPECT_EQ(followed, tile());
    EXPECT_NE(followed, light);
    QApplication::setPalette(palette);
}

} // namespace
} // namespace quillary::test
