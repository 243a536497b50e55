#pragma once

#include "platform/linux/statusbar/QtStatusItem.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SelectionOwner.h"
#include "tests/linux/bus/PrivateBus.h"
#include "tests/linux/statusbar/NotifierWatcherStandIn.h"
#include "tests/x11/VirtualDisplay.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace quillary::test {

/// A screen and a session bus with nothing on them; `startItem` creates the program's status item.
class StatusItemFixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void startApplication();
    void startItem();
    static bool eventually(const std::function<bool()>& condition) {
        return VirtualDisplay::waitUntil(condition);
    }
    /// Starts the desktop's tray (XEmbed) and waits until it owns its selection.
    [[nodiscard]] bool startTray();
    void stopTray();
    /// Whether the symbol is visible anywhere on the screen.
    [[nodiscard]] bool symbolSeen() const { return symbolPlace().has_value(); }
    [[nodiscard]] std::optional<QPoint> symbolPlace() const;

    /// Calls the item or its menu over the watcher's connection; returns the answer, or an error after the
    /// deadline.
    [[nodiscard]] QDBusMessage ask(const QString& path, const QString& interface, const QString& method,
                                   const QVariantList& arguments = {});
    [[nodiscard]] QVariant property(const QString& name);
    [[nodiscard]] DBusMenuNode layout();
    void clickLine(int id);

    VirtualDisplay display;
    std::unique_ptr<PrivateBus> bus = std::make_unique<PrivateBus>();
    std::unique_ptr<QApplication> application;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11SelectionOwner> tray;
    std::unique_ptr<NotifierWatcherStandIn> watcher;
    std::unique_ptr<QtStatusItem> item;
    pid_t trayProcess = 0;
    int menusAsked = 0;
    bool dockOn = true;
    std::vector<std::string> log;
    std::vector<bool> shownChanges;
};

} // namespace quillary::test
