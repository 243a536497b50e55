#pragma once

#include "platform/Platform.h"

namespace quillary {

/// The platform of an X11 session: what the X server and its window manager do, with the Linux parts beside
/// it. Panel windows that it made must be gone before it.
class X11Platform final : public Platform {
public:
    /// Connects to the X server that the application uses; null with one line on standard error when it uses
    /// none.
    [[nodiscard]] static std::unique_ptr<X11Platform> open();
    ~X11Platform() override;

    [[nodiscard]] Screens& screens() override;
    [[nodiscard]] Workspace& workspace() override;
    [[nodiscard]] SystemDockPreferences& systemDock() override;
    [[nodiscard]] PointerMonitor& pointer() override;
    [[nodiscard]] Scheduler& scheduler() override;
    [[nodiscard]] SystemLog& log() override;
    [[nodiscard]] SingleInstance& instance() override;
    [[nodiscard]] MemorySource& memory() override;
    [[nodiscard]] LoginItem& loginItem() override;
    [[nodiscard]] BundleInfo bundleInfo() const override;
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(const QIcon& symbol,
                                                             const std::string& description,
                                                             std::function<Menu()> menuNeedsUpdate) override;
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWidget& contents) override;
    /// The user's configuration folder, `LinuxFolders::configuration`.
    [[nodiscard]] std::filesystem::path applicationSupportDirectory() const override;

private:
    struct Parts;
    explicit X11Platform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

} // namespace quillary
