#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillary {
class CurrentDesktop;
}

/// Which icon theme the program shows (Icon Theme standard).
namespace quillary::IconTheme {

/// Sets Qt's icon theme: the first that is installed of the one the session names, the one Qt found itself,
/// and the most complete of the usual ones. `ofSession` is what the session's settings manager names; while
/// that is empty the user's settings files stand in for it. Adds the folders of unthemed icons. To be called
/// once; needs a QGuiApplication.
void apply(const std::string& ofSession);

/// The name in the user's settings files, whether installed or not: KDE's kdeglobals, GNOME's interface
/// settings or GTK's settings.ini, in an order that suits the desktop. Empty when none has a name.
[[nodiscard]] std::string chosenByUser(const std::filesystem::path& configFolder,
                                       const CurrentDesktop& desktop);

/// The first of the names that is installed with an index.theme below one of the folders; empty when none is.
/// A name that is not the plain name of a folder counts as not installed.
[[nodiscard]] std::string firstInstalled(const std::vector<std::string>& names,
                                         const std::vector<std::filesystem::path>& folders);

} // namespace quillary::IconTheme
