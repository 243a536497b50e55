#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillary::test {

/// The environment that every test program runs in, however it is started. It is set before main() and before
/// any static object is made, so it also holds for a program started by hand and for the listing of its
/// tests:
///
/// - HOME and the folders of the XDG Base Directory standard lie in a new folder (mode 0700 each), which
///   the process that made it removes at its exit; children that it forks do not;
/// - both buses have addresses at which nothing listens, so that no library launches one;
/// - there is no display, desktop, theme, input method or plugin folder, and the locale is C.UTF-8;
/// - the fonts are DejaVu Sans, Sans Mono and Serif, regular and bold, with Debian's default settings;
/// - icons, desktop entries, MIME types, GSettings schemas and GIO modules of the machine are not seen.
///
/// A test that needs something else sets it itself.
namespace Surroundings {

/// The folder that holds home and the base directories.
[[nodiscard]] const std::filesystem::path& root();

/// Removes the folder now: for a test that ends its process by _Exit, which runs no exit handlers.
void remove();

/// The command with the machine's XDG_DATA_DIRS and XDG_CONFIG_DIRS, for an installed program that needs its
/// own data to run: a window manager, panel or file manager.
[[nodiscard]] std::vector<std::string> withMachineData(const std::vector<std::string>& command);

} // namespace Surroundings

} // namespace quillary::test
