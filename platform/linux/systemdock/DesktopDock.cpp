#include "platform/linux/systemdock/DesktopDock.h"

#include "platform/linux/systemdock/GnomeDock.h"
#include "platform/linux/systemdock/PanelsDock.h"
#include "platform/linux/systemdock/PlasmaPanels.h"
#include "platform/linux/systemdock/XfcePanels.h"

namespace quillary {

std::unique_ptr<DesktopDock> DesktopDock::of(std::string_view currentDesktop,
                                             const std::filesystem::path& folder, SystemLog& log) {
    const auto isOn = [currentDesktop](std::string_view name) {
        return (":" + std::string(currentDesktop) + ":").find(":" + std::string(name) + ":") !=
               std::string::npos;
    };
    if (isOn("XFCE")) {
        return std::make_unique<PanelsDock>(std::make_unique<XfcePanels>(),
                                            SavedValuesFile(folder / "system-dock-xfce.json"), log);
    }
    if (isOn("KDE")) {
        return std::make_unique<PanelsDock>(std::make_unique<PlasmaPanels>(),
                                            SavedValuesFile(folder / "system-dock-plasma.json"), log);
    }
    if (isOn("GNOME")) {
        if (auto schema = GnomeDockSchema::find()) {
            return std::make_unique<GnomeDock>(std::move(schema),
                                               SavedValuesFile(folder / "system-dock-gnome.json"), log);
        }
    }
    return nullptr;
}

} // namespace quillary
