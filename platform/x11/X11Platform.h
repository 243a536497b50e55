#pragma once

#include "platform/Platform.h"

namespace quillary {

/// The platform of an X11 session: the X server and its window manager, and the parts that all window systems
/// of Linux share. Panel windows and status items that it made must be destroyed before it.
class X11Platform final : public Platform {
public:
    /// Whether the X server that DISPLAY names accepts connections. Works without a QApplication.
    [[nodiscard]] static bool serverIsReachable();
    /// Connects to the X server that the QApplication uses. Null, with one line on standard error, when it
    /// uses none or the server accepts no more connections.
    [[nodiscard]] static std::unique_ptr<X11Platform> open();
    ~X11Platform() override;

    [[nodiscard]] Screens& screens() override;
    [[nodiscard]] Workspace& workspace() override;
    [[nodiscard]] const FileFacts& files() const override;
    [[nodiscard]] const FileIcons& icons() const override;
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
