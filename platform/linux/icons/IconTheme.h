#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillary {
class CurrentDesktop;
}

/// Which icon theme the program shows (XDG Icon Theme standard).
namespace quillary::IconTheme {

/// Sets Qt's icon theme: the one the user chose in the desktop's settings, else what Qt found itself, else
/// the best that is installed; adds the folders of unthemed icons. Once is enough; needs a QGuiApplication.
void apply();

/// The name that the user's settings give, whether installed or not: KDE's kdeglobals, GNOME's interface
/// settings or GTK's settings.ini, in an order that suits the desktop, and before them on Xfce its
/// xsettings. Empty when none does.
[[nodiscard]] std::string chosenByUser(const std::filesystem::path& configFolder,
                                       const CurrentDesktop& desktop);

/// The first of the names that is installed with an index.theme below one of the folders; empty when none is.
/// Names that are no plain folder name are passed over.
[[nodiscard]] std::string firstInstalled(const std::vector<std::string>& names,
                                         const std::vector<std::filesystem::path>& folders);

} // namespace quillary::IconTheme
