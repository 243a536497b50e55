#include "tests/desktop/DesktopFixture.h"

#include <QJsonArray>

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
const QColor green(20, 200, 20);
const QColor yellow(220, 220, 20);

const QRect leftScreen(0, 0, 1280, 900);
const QRect rightScreen(1280, 0, 1120, 800);

/// Two pinned icons of 48 points that don't grow: on LEFT a panel of 146 × 125 at 567, 775, the icons'
/// middles at 613 and 667; on RIGHT at 1813 and 1867.
class DragTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        items = {home.install("red", red), home.install("green", green)};
        running = home.install("yellow", yellow);
        const std::string options = R"("magnification":"off")";
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
        ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen) == QRect(589, 833, 48, 48); }));
    }
    /// As a hand does it: a moment between pressing, moving and letting go.
    void drag(QPoint from, QPoint to) {
        constexpr int steps = 12;
        display.movePointer(from);
        VirtualDisplay::runFor(200);
        display.pressButton(1);
        VirtualDisplay::runFor(100);
        for (int i = 1; i <= steps; ++i) {
            display.movePointer(from + (to - from) * i / steps);
            VirtualDisplay::runFor(40);
        }
        VirtualDisplay::runFor(300);
    }
    void drop() { display.releaseButton(1); }
    testing::AssertionResult saved(const std::string& key, const std::vector<std::string>& expected) const {
        QJsonArray wanted;
        for (const auto& path : expected) {
            wanted.append(QString::fromStdString(path));
        }
        QJsonArray found;
        if (eventually([&] {
                found = home.dockSettings(key).value(QStringLiteral("items")).toArray();
                return found == wanted;
            })) {
            return testing::AssertionSuccess();
        }
        auto failure = testing::AssertionFailure() << "the items are";
        for (const auto& item : found) {
            failure << " " << item.toString().toStdString();
        }
        return failure;
    }
    void startSource(const std::vector<std::string>& urls) {
        std::vector<std::string> command{QUILLARY_DRAG_SOURCE};
        command.insert(command.end(), urls.begin(), urls.end());
        display.start(command);
        ASSERT_TRUE(eventually([&] { return windowOf("quillary_desktop_drag_source") != XCB_WINDOW_NONE; }));
        VirtualDisplay::runFor(500);
    }

    const QPoint redIcon{613, 857};
    const QPoint greenIcon{667, 857};
    const QPoint redIconOnRight{1813, 757};
    /// On the background, between the second icon and the row's end.
    const QPoint shelf{695, 870};
    const QPoint inSource{150, 350};
    std::vector<std::string> items;
    std::string running;
};

} // namespace

TEST_F(DragTest, anIconTakesThePlaceOfTheOneItIsDroppedOn) {
    drag(redIcon, greenIcon);
    drop();
    EXPECT_TRUE(saved(leftKey, {items[1], items[0]}));
    EXPECT_TRUE(saved(rightKey, items));
    EXPECT_TRUE(eventually([&] { return colourBox(red, leftScreen) == QRect(643, 833, 48, 48); }));
    EXPECT_EQ(windowOf("red"), xcb_window_t{XCB_WINDOW_NONE}) << "a drag is no click";
}

TEST_F(DragTest, anIconIsPinnedOnTheOtherScreenAndStaysOnItsOwn) {
    const auto own = home.install("blue", QColor(20, 20, 220));
    ASSERT_TRUE(program.quit());
    const std::string options = R"("magnification":"off")";
    home.writeSettings(
        settingsJson({dockJson(leftKey, {own, items[1]}, options), dockJson(rightKey, items, options)}));
    startWithDocks(2);
    ASSERT_TRUE(eventually([&] { return !colourBox(red, rightScreen).isNull(); }));
    drag(redIcon, redIconOnRight);
    drop();
    EXPECT_TRUE(saved(rightKey, {own, items[0], items[1]}));
    EXPECT_TRUE(saved(leftKey, {own, items[1]}));
}

TEST_F(DragTest, aRunningApplicationsIconIsPinnedWhereItIsDropped) {
    display.start({QUILLARY_TEST_APPLICATION, "yellow", "100", "100", "300", "200"});
    ASSERT_TRUE(eventually([&] { return !colourBox(yellow, leftScreen).isNull(); }));
    VirtualDisplay::runFor(1000);
    drag(colourBox(yellow, leftScreen).center(), colourBox(red, leftScreen).center());
    drop();
    EXPECT_TRUE(saved(leftKey, {running, items[0], items[1]}));
}

TEST_F(DragTest, aFileOnTheBackgroundIsPinnedAndTheBorderAnswersMeanwhile) {
    startSource({"file:///usr/share/doc", "https://example.org/", "file:///gone%20file"});
    const QColor before = colourAt(QPoint(640, 825));
    drag(inSource, shelf);
    EXPECT_NE(colourAt(QPoint(640, 825)), before) << "the border";
    drop();
    EXPECT_TRUE(saved(leftKey, {items[0], items[1], "/usr/share/doc", "/gone file"}));
}

TEST_F(DragTest, aFileOnAnApplicationStartsIt) {
    startSource({"file:///usr/share/doc"});
    drag(inSource, redIcon);
    drop();
    EXPECT_TRUE(eventually([&] { return windowOf("red") != XCB_WINDOW_NONE; })) << program.log();
    EXPECT_TRUE(saved(leftKey, items));
}

TEST_F(DragTest, aHiddenDockComesOutUnderADrag) {
    ASSERT_TRUE(program.quit());
    home.writeSettings(settingsJson({dockJson(leftKey, items, R"("magnification":"off","autoHide":true)"),
                                     dockJson(rightKey, items, R"("magnification":"off")")}));
    startWithDocks(2);
    ASSERT_TRUE(eventually([&] { return colourBox(red, leftScreen).isNull(); }));
    startSource({"file:///usr/share/doc"});
    drag(inSource, QPoint(640, 899));
    EXPECT_TRUE(eventually([&] { return !colourBox(red, leftScreen).isNull(); }));
    display.movePointer(QPoint(668, 860));
    display.movePointer(greenIcon);
    VirtualDisplay::runFor(300);
    drop();
    EXPECT_TRUE(eventually([&] { return windowOf("green") != XCB_WINDOW_NONE; })) << program.log();
}

TEST_F(DragTest, aDragThatIsCancelledLeavesNothing) {
    startSource({"file:///usr/share/doc"});
    constexpr xcb_keysym_t escapeKey = 0xff1b;
    const QColor before = colourAt(QPoint(640, 825));
    drag(inSource, shelf);
    ASSERT_NE(colourAt(QPoint(640, 825)), before);
    display.typeKey(escapeKey);
    EXPECT_TRUE(eventually([&] { return colourAt(QPoint(640, 825)) == before; }));
    drop();
    VirtualDisplay::runFor(500);
    EXPECT_TRUE(saved(leftKey, items));
}

} // namespace quillary::test
