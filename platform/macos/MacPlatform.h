#pragma once

#include "platform/Platform.h"

namespace quillary {

/// The platform of macOS. Panel windows that it made must be destroyed before it.
class MacPlatform final : public Platform {
public:
    /// Makes the program an accessory. Null, with one line on standard error, when Qt does not use AppKit.
    [[nodiscard]] static std::unique_ptr<MacPlatform> open();
    ~MacPlatform() override;

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
    /// From the main bundle's information dictionary.
    [[nodiscard]] BundleInfo bundleInfo() const override;
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(const QIcon& symbol,
                                                             const std::string& description,
                                                             std::function<Menu()> menuNeedsUpdate) override;
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWidget& contents) override;
    /// The user's Application Support folder.
    [[nodiscard]] std::filesystem::path applicationSupportDirectory() const override;

private:
    struct Parts;
    explicit MacPlatform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

} // namespace quillary
