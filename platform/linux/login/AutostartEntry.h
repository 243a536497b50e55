#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillary::AutostartEntry {

/// The text of an entry that starts the program when the user logs in. `name` is shown to the user; `program`
/// is an absolute path. In its Exec key the program is one quoted argument, with reserved characters escaped
/// and field codes made literal (Desktop Entry standard, "The Exec key"). Nothing when the standard has no
/// way to write the path: it is not UTF-8 or holds an equal sign.
[[nodiscard]] std::optional<std::string> text(const std::string& name, const std::string& icon,
                                              const std::string& program);

/// The text of an entry that disables those of the same file name in the system's folders (key Hidden,
/// Desktop Application Autostart standard).
[[nodiscard]] std::string hiddenText(const std::string& name);

/// Whether a session starts what the entry at the path names: false when it is hidden, switched off
/// (X-GNOME-Autostart-enabled), meant for other desktops than the named ones (OnlyShowIn, NotShowIn), or no
/// application's entry; so is one that cannot be read or is over 64 KiB.
[[nodiscard]] bool starts(const std::filesystem::path& file, const std::vector<std::string>& currentDesktops);

} // namespace quillary::AutostartEntry
