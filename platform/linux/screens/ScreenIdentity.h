#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary::ScreenIdentity {

/// 32-bit FNV-1a of the monitor's name: the display number of a monitor that has no identity of its own.
[[nodiscard]] std::uint32_t displayNumber(std::string_view monitorName);

/// What a monitor is known by: the name of its connector, and its display's own identity where there is one.
struct Monitor {
    std::string connector;
    std::optional<std::string> identity;
};

/// One UUID for each monitor, in the same order: version 5 (RFC 4122, SHA-1 of the identity in a namespace of
/// our own), upper case without braces; absent for a monitor without identity. Connected monitors with equal
/// identities get their connectors mixed in, so that all UUIDs differ.
[[nodiscard]] std::vector<std::optional<std::string>> uuids(const std::vector<Monitor>& monitors);

} // namespace quillary::ScreenIdentity
