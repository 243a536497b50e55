#pragma once

#include <QObject>

#include <memory>

namespace quillary {

class DebugSnapshot;
class DockManager;
class Platform;

/// The life of the program: what happens when it has started and when it is about to end.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// The platform must outlive the delegate.
    explicit AppDelegate(Platform& platform);
    ~AppDelegate() override;

    /// Puts the docks on the screens.
    void applicationDidFinishLaunching();
    /// Puts the desktop's own dock back. Does its work once, however often it is called.
    void applicationWillTerminate();

    /// Null until launching has finished.
    [[nodiscard]] DockManager* manager() const { return docks.get(); }

private:
    Platform& platform;
    std::unique_ptr<DockManager> docks;
    std::unique_ptr<DebugSnapshot> snapshot;
    bool terminated = false;
};

} // namespace quillary
