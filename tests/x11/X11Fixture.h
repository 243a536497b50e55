#pragma once

#include "platform/qt/QtScheduler.h"
#include "platform/x11/X11ClientList.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Screens.h"
#include "tests/x11/TestWindow.h"
#include "tests/x11/VirtualDisplay.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <memory>

namespace quillary::test {

/// A server with two monitors; the program's side of it is made by `startApplication`, so that a test can
/// prepare the display first.
class X11Fixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void startApplication();
    /// Runs the event loop until the condition holds.
    static bool eventually(const std::function<bool()>& condition) {
        return VirtualDisplay::waitUntil(condition);
    }
    /// The number of requests sent on a connection, the one that counts them included.
    static unsigned requestsSoFar(xcb_connection_t* xcb) { return xcb_no_operation(xcb).sequence; }
    /// Waits until both sides have seen all that was asked so far.
    void settle();

    VirtualDisplay display;
    std::unique_ptr<QApplication> application;
    std::unique_ptr<QtScheduler> scheduler;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11ClientList> clients;
    std::unique_ptr<X11Compositor> compositor;
    std::unique_ptr<X11Screens> screens;
};

} // namespace quillary::test
