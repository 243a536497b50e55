#include "platform/linux/systemdock/DesktopDock.h"

#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/systemdock/AutohidingPanels.h"
#include "platform/linux/systemdock/GnomeDock.h"
#include "platform/linux/systemdock/PlasmaPanelModes.h"
#include "platform/linux/systemdock/XfcePanelModes.h"

namespace quillary {

std::unique_ptr<DesktopDock> DesktopDock::of(const CurrentDesktop& desktop,
                                             const std::filesystem::path& folder, SystemLog& log) {
    if (desktop.is("XFCE")) {
        return std::make_unique<AutohidingPanels>(std::make_unique<XfcePanelModes>(),
                                                  SavedValuesFile(folder / "system-dock-xfce.json"), log);
    }
    if (desktop.is("KDE")) {
        return std::make_unique<AutohidingPanels>(std::make_unique<PlasmaPanelModes>(),
                                                  SavedValuesFile(folder / "system-dock-plasma.json"), log);
    }
    if (desktop.is("GNOME")) {
        if (auto schema = GnomeDockSchema::find()) {
            return std::make_unique<GnomeDock>(std::move(schema),
                                               SavedValuesFile(folder / "system-dock-gnome.json"), log);
        }
    }
    return nullptr;
}

} // namespace quillary
