#pragma once

#include "platform/Platform.h"

namespace quillary {

/// The platform of macOS. Panel windows that it made must be gone before it.
class MacPlatform final : public Platform {
public:
    /// Makes the program an accessory; null with one line on standard error when the toolkit does not draw by
    /// AppKit.
    [[nodiscard]] static std::unique_ptr<MacPlatform> open();
    ~MacPlatform() override;

    [[nodiscard]] Screens& screens() override;
    [[nodiscard]] Workspace& workspace() override;
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
    /// The first Application Support folder of the user.
    [[nodiscard]] std::filesystem::path applicationSupportDirectory() const override;

private:
    struct Parts;
    explicit MacPlatform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

} // namespace quillary
