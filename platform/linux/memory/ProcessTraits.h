#pragma once

#include "platform/linux/windows/ProcessFacts.h"

#include <string>
#include <string_view>

namespace quillary {

/// The properties of a process by which it is attributed to an application. Empty where nothing is known.
struct ProcessTraits {
    /// See `installFolder`.
    std::string folder;
    /// Path of its control group.
    std::string group;
    /// Path of the desktop entry that GIO started this process for; empty when the variable was inherited.
    std::string launchedEntry;
    /// Flatpak id or snap name.
    std::string sandbox;

    bool operator==(const ProcessTraits&) const = default;
};

[[nodiscard]] ProcessTraits traitsOf(const ProcessFacts& facts);

/// The folder that an application was installed into, by the path of one of its executables: the folder the
/// executable lies in, without a last "bin". Empty for folders that many applications share (/usr/bin, /opt
/// itself, the user's own "bin", "Downloads", "Desktop" …) and for programs that run other programs' code
/// (shells, interpreters).
[[nodiscard]] std::string installFolder(std::string_view executable);

} // namespace quillary
