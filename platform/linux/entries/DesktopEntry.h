#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {

/// What the file names of desktop entries end in.
inline constexpr std::string_view entrySuffix = ".desktop";

/// A desktop file id without ".desktop".
[[nodiscard]] std::string_view withoutEntrySuffix(std::string_view id);

/// What the program needs to know of one installed application (the XDG Desktop Entry standard, 1.5). Texts
/// are UTF-8 and empty when the key is absent.
struct DesktopEntry {
    /// Absolute path of the file.
    std::string path;
    /// Desktop file id: the path below the applications folder with '/' as '-' ("kde4-foo.desktop").
    std::string id;
    std::string name;
    /// The name in the user's language, `name` when there is no translation, fit to be shown: at most 256
    /// characters, spaces for control characters and line breaks.
    std::string localisedName;
    /// Name of a themed icon, or absolute path of a picture.
    std::string icon;
    std::string startupWmClass;
    /// The program that Exec runs, as `programName` gives it.
    std::string program;
    /// How many arguments Exec gives the program besides field codes: entries for a special purpose have
    /// some.
    std::size_t arguments = 0;
    /// The flatpak id or snap name that the exporter wrote.
    std::string sandbox;
    std::vector<std::string> categories;
    /// Not meant for menus: NoDisplay, or OnlyShowIn and NotShowIn of other desktops.
    bool noDisplay = false;
    /// Hidden: the entry counts as deleted and takes those of lower precedence with it.
    bool hidden = false;
    bool terminal = false;
    bool dbusActivatable = false;
    /// TryExec names a program that isn't installed.
    bool tryExecMissing = false;

    /// The id without ".desktop".
    [[nodiscard]] std::string stem() const;

    bool operator==(const DesktopEntry&) const = default;
};

/// Reads the entry at the path. Absent when it is no valid entry of type Application: unreadable, over 1 MiB,
/// not UTF-8, without a name, or without anything to launch. `currentDesktops` are the names of
/// `CurrentDesktop`.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(const std::string& path, const std::string& id,
                                                           const std::vector<std::string>& currentDesktops);

} // namespace quillary
