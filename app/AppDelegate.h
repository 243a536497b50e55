#pragma once

#include "platform/Menu.h"

#include <QObject>

#include <memory>

namespace quillary {

class DebugSnapshot;
class DockManager;
class Platform;
class SettingsWindow;
class StatusItem;

/// The life of the program: what happens when it has started, when it is opened again and when it is about to
/// end.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// The platform must outlive the delegate.
    explicit AppDelegate(Platform& platform);
    ~AppDelegate() override;

    /// Puts the docks on the screens and the symbol into the status bar; greets a new user, once.
    void applicationDidFinishLaunching();
    /// Puts the desktop's own dock back. A second call finds it put back and changes nothing.
    void applicationWillTerminate();
    /// The program was opened while it runs: shows the settings. Always false: the toolkit has nothing left
    /// to do.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    /// The status item's menu, made for each opening; empty before launching has finished.
    [[nodiscard]] Menu menuNeedsUpdate();

    /// Null until launching has finished.
    [[nodiscard]] DockManager* manager() const { return m_manager.get(); }
    /// The settings window, made by its first showing. Null until launching has finished.
    [[nodiscard]] SettingsWindow* settings() const { return m_settings.get(); }

Q_SIGNALS:
    /// The user asked the program to end.
    void terminate();

private:
    void showSettings();

    Platform& m_platform;
    std::unique_ptr<DockManager> m_manager;
    std::unique_ptr<SettingsWindow> m_settings;
    std::unique_ptr<StatusItem> m_statusItem;
    std::unique_ptr<DebugSnapshot> m_snapshot;
};

} // namespace quillary
