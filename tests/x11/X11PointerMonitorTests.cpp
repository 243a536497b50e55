#include "platform/x11/X11PointerMonitor.h"
#include "tests/x11/X11Fixture.h"

#include <fstream>

namespace quillary {

using test::TestWindow;
using test::VirtualDisplay;

namespace {

class X11PointerMonitorTest : public test::X11Fixture {
protected:
    void startPointer() {
        display.movePointer(QPoint(600, 400));
        startApplication();
        auto server = X11Connection::open();
        pointerConnection = server->xcb();
        pointer = std::make_unique<X11PointerMonitor>(std::move(server), *screens);
        QObject::connect(pointer.get(), &PointerMonitor::moved, pointer.get(),
                         [this](QPointF point) { told.push_back(point); });
        settle();
        told.clear();
    }
    void TearDown() override {
        pointer.reset();
        X11Fixture::TearDown();
    }

    std::unique_ptr<X11PointerMonitor> pointer;
    /// The monitor's own connection, on which it sends nothing but queries once it has started.
    xcb_connection_t* pointerConnection = nullptr;
    std::vector<QPointF> told;
};

long contextSwitches() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        const std::string key = "voluntary_ctxt_switches:";
        if (line.starts_with(key)) {
            return std::stol(line.substr(key.size()));
        }
    }
    return -1;
}

} // namespace

TEST_F(X11PointerMonitorTest, knowsThePlaceFromTheStart) {
    startPointer();
    EXPECT_EQ(pointer->location(), QPointF(600, 400));
}

TEST_F(X11PointerMonitorTest, tellsMovementsOutsideOurWindows) {
    startPointer();
    const TestWindow other(display, QRect(0, 0, 2400, 900), TestWindow::Manager::bypassed);
    display.movePointer(QPoint(1300, 70));
    EXPECT_TRUE(eventually([&] { return !told.empty() && told.back() == QPointF(1300, 70); }));
    display.movePointer(QPoint(5, 5));
    EXPECT_TRUE(eventually([&] { return told.back() == QPointF(5, 5); }));
}

TEST_F(X11PointerMonitorTest, tellsMovementsDuringAnotherClientsGrab) {
    startPointer();
    TestWindow other(display, QRect(0, 0, 200, 200), TestWindow::Manager::bypassed);
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(other.grabPointer());
    display.movePointer(QPoint(900, 300));
    EXPECT_TRUE(eventually([&] { return !told.empty() && told.back() == QPointF(900, 300); }));
}

TEST_F(X11PointerMonitorTest, tellsAtMostOnceAFrameAndTheLastPlaceAlways) {
    startPointer();
    const auto before = requestsSoFar(pointerConnection);
    QElapsedTimer clock;
    clock.start();
    for (int x = 0; x < 500; ++x) {
        display.movePointer(QPoint(700 + x % 200, 400));
        QCoreApplication::processEvents();
    }
    display.movePointer(QPoint(1000, 444));
    EXPECT_TRUE(eventually([&] { return !told.empty() && told.back() == QPointF(1000, 444); }));
    const auto frames = clock.elapsed() / X11PointerMonitor::frameInterval() + 2;
    const auto queries = requestsSoFar(pointerConnection) - before - 1;
    EXPECT_LE(queries, frames);
    EXPECT_GE(queries, 2U);
}

TEST_F(X11PointerMonitorTest, aJumpByAProgramIsFoundByRefresh) {
    startPointer();
    display.warpPointer(QPoint(50, 60));
    settle();
    EXPECT_TRUE(told.empty());
    pointer->refresh();
    EXPECT_EQ(told, (std::vector<QPointF>{QPointF(50, 60)}));
    pointer->refresh();
    EXPECT_EQ(told.size(), 1U) << "nothing new";
}

TEST_F(X11PointerMonitorTest, looksOnceMoreAMomentAfterTheLastMovement) {
    startPointer();
    display.movePointer(QPoint(610, 410));
    ASSERT_TRUE(eventually([&] { return !told.empty(); }));
    // Stands for a location that the server did not report.
    display.warpPointer(QPoint(50, 60));
    EXPECT_TRUE(eventually([&] { return told.back() == QPointF(50, 60); }));
    const auto before = requestsSoFar(pointerConnection);
    VirtualDisplay::runFor(2 * X11PointerMonitor::lastLookDelay);
    EXPECT_EQ(requestsSoFar(pointerConnection), before + 1) << "and then no more";
}

TEST_F(X11PointerMonitorTest, aClickAfterAJumpShowsThePlace) {
    startPointer();
    display.warpPointer(QPoint(50, 60));
    settle();
    display.pressButton(1);
    EXPECT_TRUE(eventually([&] { return told == std::vector<QPointF>{QPointF(50, 60)}; }));
    display.releaseButton(1);
}

TEST_F(X11PointerMonitorTest, movementsWithTheLeftButtonHeldAreEmitted) {
    startPointer();
    display.pressButton(1);
    display.movePointer(QPoint(640, 899));
    EXPECT_TRUE(eventually([&] { return told == std::vector<QPointF>{QPointF(640, 899)}; }));
    display.pressButton(3);
    display.movePointer(QPoint(650, 899));
    EXPECT_TRUE(eventually([&] { return told.back() == QPointF(650, 899); })) << "the left one is held still";
    display.releaseButton(3);
    display.releaseButton(1);
}

TEST_F(X11PointerMonitorTest, movementsWithAnotherButtonHeldAreEmittedOnceAtItsRelease) {
    startPointer();
    for (const int button : {2, 3}) {
        SCOPED_TRACE(button);
        display.pressButton(button);
        display.movePointer(QPoint(640, 899));
        display.movePointer(QPoint(700, 890));
        settle();
        pointer->refresh();
        VirtualDisplay::runFor(2 * X11PointerMonitor::lastLookDelay);
        EXPECT_TRUE(told.empty());
        EXPECT_EQ(pointer->location(), QPointF(700, 890)) << "who asks is answered";
        display.releaseButton(button);
        EXPECT_TRUE(eventually([&] { return !told.empty(); }));
        VirtualDisplay::runFor(2 * X11PointerMonitor::lastLookDelay);
        EXPECT_EQ(told, std::vector<QPointF>{QPointF(700, 890)});
        display.movePointer(QPoint(600, 400));
        ASSERT_TRUE(eventually([&] { return told.back() == QPointF(600, 400); }));
        VirtualDisplay::runFor(2 * X11PointerMonitor::lastLookDelay);
        told.clear();
    }
}

TEST_F(X11PointerMonitorTest, placesAreInPoints) {
    setenv("QT_SCALE_FACTOR", "2", 1);
    startPointer();
    unsetenv("QT_SCALE_FACTOR");
    EXPECT_EQ(pointer->location(), QPointF(300, 200));
    display.movePointer(QPoint(1380, 100));
    EXPECT_TRUE(eventually([&] { return !told.empty() && told.back() == QPointF(1330, 50); }));
}

TEST_F(X11PointerMonitorTest, nothingWakesWhileNothingMoves) {
    startPointer();
    display.movePointer(QPoint(610, 410));
    ASSERT_TRUE(eventually([&] { return !told.empty(); }));
    VirtualDisplay::runFor(2 * X11PointerMonitor::lastLookDelay);
    const auto before = requestsSoFar(pointerConnection);
    long switches = 0;
    bool over = false;
    QTimer::singleShot(1500, Qt::PreciseTimer, application.get(), [&] { over = true; });
    switches = contextSwitches();
    ASSERT_GE(switches, 0);
    while (!over) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    // The timer that ends the wait is one; a few more may come from the toolkit. Polling would make a
    // hundred.
    EXPECT_LE(contextSwitches() - switches, 6);
    EXPECT_EQ(requestsSoFar(pointerConnection), before + 1) << "the pointer is not queried";
}

} // namespace quillary
