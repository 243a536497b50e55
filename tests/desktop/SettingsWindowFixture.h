#pragma once

#include "tests/desktop/AccessibilityTree.h"
#include "tests/desktop/DesktopFixture.h"
#include "tests/linux/bus/PrivateBus.h"

#include <QCoreApplication>

#include <memory>

namespace quillary::test {

/// The program with its settings window open, in a session with assistive technology, from which the tests
/// read where on the screen each control is.
class SettingsWindowFixture : public DesktopFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the program with two docks at their defaults, "/a" and "/b" pinned to each.
    void startProgram();
    /// Brings the window by starting the program once more, and waits for it.
    void openSettings();
    /// None when it is not managed.
    [[nodiscard]] xcb_window_t settingsWindow() const;
    /// The whole window.
    [[nodiscard]] AccessibleNode form() const;
    /// Waits for a control of that role and name in the section of that title ("LEFT"), and for it to be
    /// within what is seen of the form, which is scrolled for that.
    [[nodiscard]] AccessibleNode control(const std::string& section, const std::string& role,
                                         const std::string& name);
    [[nodiscard]] bool hasSection(const std::string& title) const;
    /// Clicks on the middle of a control.
    void clickOn(const AccessibleNode& node) { display.click(node.extents().center()); }
    [[nodiscard]] QJsonValue stored(const std::string& key, const char* field) const {
        return home.dockSettings(key).value(QLatin1String(field));
    }

private:
    void scrollTo(const AccessibleNode& node);

    std::unique_ptr<QCoreApplication> m_application;
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<AccessibilityBus> m_accessibility;
};

} // namespace quillary::test
