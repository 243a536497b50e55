#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary::AutostartEntry {

/// An argument as it stands in the Exec key of a desktop entry: quoted, its reserved characters escaped,
/// field codes made literal, and escaped once more as the value of a key (Desktop Entry standard, "The Exec
/// key" and "Possible value types").
[[nodiscard]] std::string quotedArgument(std::string_view argument);

/// The text of an entry that starts the program when the user logs in. `program` is an absolute path.
/// Nothing when the standard has no way to write it: it is not UTF-8 or holds an equal sign.
[[nodiscard]] std::optional<std::string> text(const std::string& name, const std::string& icon,
                                              const std::string& program);

/// The text of an entry that takes back those of the same name elsewhere (Hidden, Desktop Application
/// Autostart standard).
[[nodiscard]] std::string hiddenText(const std::string& name);

/// Whether a session starts what the entry at the path names: false when it is hidden, switched off
/// (X-GNOME-Autostart-enabled), meant for other desktops than the named ones (OnlyShowIn, NotShowIn), or no
/// application's entry; so is one that cannot be read or is over 64 KiB.
[[nodiscard]] bool starts(const std::filesystem::path& file, const std::vector<std::string>& currentDesktops);

} // namespace quillary::AutostartEntry
