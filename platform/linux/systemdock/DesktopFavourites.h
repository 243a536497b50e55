#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {
class CurrentDesktop;
}

/// What the user pinned to the panel of a desktop environment, in its order. Each item has the form in which
/// the desktop stores it: a desktop file id ("firefox.desktop"), "applications:<id>", a "preferred://browser"
/// or "preferred://filemanager", the absolute path of an entry, or its file URI. Absent when that desktop's
/// settings name none.
namespace quillary::DesktopFavourites {

using Items = std::optional<std::vector<std::string>>;

/// GNOME Shell's favourites.
[[nodiscard]] Items ofGnome();
/// The launchers of Plasma's task managers, from the text of plasma-org.kde.plasma.desktop-appletsrc.
[[nodiscard]] Items ofPlasma(std::string_view appletSettings);
/// The launchers of Xfce's panels, in the order of their plugins, from the folder of user configuration.
[[nodiscard]] Items ofXfce(const std::filesystem::path& configFolder);

/// Those of the desktop environment, read from the folder of user configuration.
[[nodiscard]] Items ofDesktop(const CurrentDesktop& desktop, const std::filesystem::path& configFolder);

} // namespace quillary::DesktopFavourites
