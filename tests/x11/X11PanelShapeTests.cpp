#include "tests/x11/PanelFixture.h"

namespace quillary {

using test::TestWindow;
using X11PanelShapeTest = test::PanelFixture;

namespace {

bool near(int a, int b) {
    return std::abs(a - b) <= 3;
}

} // namespace

TEST_F(X11PanelShapeTest, theInputRegionIsExact) {
    startPanel();
    present(QRect(340, 780, 600, 120));
    const QRegion region = QRegion(10, 60, 580, 60) + QRegion(200, 0, 40, 60);
    panel->setInputRegion(region);
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == region; }));
    EXPECT_EQ(shape(XCB_SHAPE_SK_BOUNDING), QRegion(0, 0, 600, 120)) << "drawing is not clipped";
    panel->setInputRegion(QRegion());
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT).isEmpty(); }));
}

TEST_F(X11PanelShapeTest, asksForBlurWhileTheCompositorOffersIt) {
    ASSERT_TRUE(display.startCompositor());
    startPanel();
    present(QRect(340, 780, 600, 120));
    const auto asked = [this] { return display.numbers(id(), "_KDE_NET_WM_BLUR_BEHIND_REGION"); };
    panel->setBlurRegion(QRegion(10, 60, 580, 50));
    EXPECT_FALSE(panel->blursBehind());
    EXPECT_TRUE(asked().empty());

    int changes = 0;
    QObject::connect(panel.get(), &PanelWindow::compositedChanged, panel.get(), [&changes] { ++changes; });
    const auto property = display.atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
    const std::uint8_t nothing = 0;
    xcb_change_property(display.xcb(), XCB_PROP_MODE_REPLACE, display.root(), property, property, 8, 1,
                        &nothing);
    xcb_flush(display.xcb());
    EXPECT_TRUE(eventually([&] { return panel->blursBehind(); }));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(eventually([&] { return asked() == std::vector<std::uint32_t>{10, 60, 580, 50}; }));
    panel->setBlurRegion(QRegion());
    EXPECT_TRUE(eventually([&] { return asked().empty(); }));
    panel->setBlurRegion(QRegion(0, 0, 20, 20));
    EXPECT_TRUE(eventually([&] { return asked().size() == 4; }));

    xcb_delete_property(display.xcb(), display.root(), property);
    xcb_flush(display.xcb());
    EXPECT_TRUE(eventually([&] { return !panel->blursBehind() && asked().empty(); }));
    EXPECT_EQ(changes, 2);
}

TEST_F(X11PanelShapeTest, theSameRegionAgainCostsNothing) {
    startPanel();
    present(QRect(340, 780, 600, 120));
    auto* toolkit = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    panel->setInputRegion(QRect(0, 0, 100, 100));
    const auto before = requestsSoFar(toolkit);
    panel->setInputRegion(QRect(0, 0, 100, 100));
    panel->setInputRegion(QRegion(0, 0, 50, 100) + QRegion(50, 0, 50, 100));
    EXPECT_EQ(requestsSoFar(toolkit), before + 1) << "the request that counts is the only one";
    panel->setInputRegion(QRect(0, 0, 100, 99));
    EXPECT_EQ(requestsSoFar(toolkit), before + 3);
}

TEST_F(X11PanelShapeTest, theRegionHoldsOverResizeAndHide) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(340, 780, 600, 120));
    panel->setInputRegion(QRect(10, 10, 50, 50));
    panel->setFrame(QRect(340, 700, 700, 200));
    widget->hide();
    panel->orderFront();
    ASSERT_TRUE(eventually([&] { return place() == QRect(340, 700, 700, 200); }));
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(10, 10, 50, 50); }));
    settle();
    EXPECT_EQ(shape(XCB_SHAPE_SK_INPUT), QRegion(10, 10, 50, 50)) << "and keeps it";
}

TEST_F(X11PanelShapeTest, clicksOutsideTheRegionReachTheWindowBelow) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    TestWindow below(display, QRect(300, 650, 700, 230));
    ASSERT_TRUE(below.show());
    present(QRect(340, 700, 600, 120));
    panel->setInputRegion(QRect(0, 60, 600, 60));
    ASSERT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(0, 60, 600, 60); }));
    display.click(QPoint(600, 730));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 1; }));
    EXPECT_EQ(widget->presses, 0);
    display.click(QPoint(600, 790));
    EXPECT_TRUE(eventually([&] { return widget->presses == 1; }));
    EXPECT_EQ(below.clicks(), 1);
    panel->setInputRegion(QRegion());
    ASSERT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT).isEmpty(); }));
    // openbox loses a click that comes right after another.
    settle();
    display.click(QPoint(600, 790));
    EXPECT_TRUE(eventually([&] { return below.clicks() == 2; }));
    EXPECT_EQ(widget->presses, 1);
}

TEST_F(X11PanelShapeTest, movementsAreLeftToThePointerMonitor) {
    startPanel();
    widget->setMouseTracking(true);
    present(QRect(340, 700, 600, 120));
    display.movePointer(QPoint(400, 750));
    for (int x = 410; x < 500; x += 10) {
        display.movePointer(QPoint(x, 750));
        settle();
    }
    display.click(QPoint(600, 790));
    ASSERT_TRUE(eventually([&] { return widget->presses == 1; })) << "of clicks it is told";
    // The toolkit makes a movement of every entering.
    EXPECT_LE(widget->movements, 2);
}

TEST_F(X11PanelShapeTest, crossingsAreTold) {
    startPanel();
    present(QRect(340, 700, 600, 120));
    panel->setInputRegion(QRect(0, 60, 600, 60));
    display.movePointer(QPoint(100, 100));
    settle();
    int crossings = 0;
    QObject::connect(panel.get(), &PanelWindow::pointerCrossed, panel.get(), [&] { ++crossings; });
    display.warpPointer(QPoint(600, 790));
    EXPECT_TRUE(eventually([&] { return crossings == 1; }));
    display.warpPointer(QPoint(600, 730));
    EXPECT_TRUE(eventually([&] { return crossings == 2; })) << "out of the input region";
    panel->setInputRegion(QRect(0, 0, 600, 120));
    EXPECT_TRUE(eventually([&] { return crossings == 3; })) << "the region came under the pointer";
}

TEST_F(X11PanelShapeTest, translucentPixelsAreBlendedByACompositor) {
    ASSERT_TRUE(display.startWindowManager());
    ASSERT_TRUE(display.startCompositor());
    startPanel();
    EXPECT_TRUE(panel->composited());
    TestWindow below(display, QRect(300, 650, 700, 230));
    ASSERT_TRUE(below.show());
    widget->colour = QColor(255, 0, 0, 128);
    panel->setVisibleShape(QRect(0, 0, 10, 10));
    present(QRect(340, 700, 600, 120));
    EXPECT_TRUE(eventually([&] {
        const auto pixel = display.pixel(QPoint(600, 750));
        return near(qRed(pixel), 255) && near(qGreen(pixel), 127) && near(qBlue(pixel), 127);
    })) << std::hex
        << display.pixel(QPoint(600, 750));
    EXPECT_EQ(shape(XCB_SHAPE_SK_BOUNDING), QRegion(0, 0, 600, 120)) << "no shape while composited";
}

TEST_F(X11PanelShapeTest, withoutCompositorTheWindowHasTheVisibleShape) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    EXPECT_FALSE(panel->composited());
    TestWindow below(display, QRect(300, 650, 700, 230));
    ASSERT_TRUE(below.show());
    panel->setVisibleShape(QRect(100, 60, 400, 60));
    present(QRect(340, 700, 600, 120));
    EXPECT_TRUE(eventually([&] { return display.pixel(QPoint(640, 790)) == qRgb(255, 0, 0); }));
    EXPECT_EQ(display.pixel(QPoint(640, 730)), qRgb(255, 255, 255)) << "the window below";
    EXPECT_EQ(shape(XCB_SHAPE_SK_BOUNDING), QRegion(100, 60, 400, 60));
}

TEST_F(X11PanelShapeTest, withoutCompositorOnlyWhatIsSeenInTheInputRegionTakesClicks) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(340, 700, 600, 120));
    panel->setVisibleShape(QRect(100, 60, 400, 60));
    panel->setInputRegion(QRect(0, 100, 600, 20));
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_INPUT) == QRegion(0, 100, 600, 20); }));
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_BOUNDING) == QRegion(100, 60, 400, 60); }))
        << "nothing unseen is painted black";
    display.click(QPoint(350, 810));
    display.click(QPoint(640, 770));
    display.click(QPoint(640, 810));
    EXPECT_TRUE(eventually([&] { return widget->presses > 0; })) << "inside both";
    settle();
    EXPECT_EQ(widget->presses, 1) << "inside one of them only";
}

TEST_F(X11PanelShapeTest, compositorsComeAndGoLive) {
    ASSERT_TRUE(display.startWindowManager());
    startPanel();
    present(QRect(340, 700, 600, 120));
    panel->setVisibleShape(QRect(100, 60, 400, 60));
    int changes = 0;
    QObject::connect(panel.get(), &PanelWindow::compositedChanged, panel.get(), [&] { ++changes; });

    ASSERT_TRUE(display.startCompositor());
    EXPECT_TRUE(eventually([&] { return panel->composited(); }));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_BOUNDING) == QRegion(0, 0, 600, 120); }));

    display.stopCompositor();
    EXPECT_TRUE(eventually([&] { return !panel->composited(); }));
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(eventually([&] { return shape(XCB_SHAPE_SK_BOUNDING) == QRegion(100, 60, 400, 60); }));

    ASSERT_TRUE(display.startCompositor());
    EXPECT_TRUE(eventually([&] { return panel->composited(); }));
    EXPECT_EQ(changes, 3);
}

} // namespace quillary
