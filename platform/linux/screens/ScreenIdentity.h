#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary::ScreenIdentity {

/// 32-bit FNV-1a of the monitor's name: the display number of a monitor without an identity.
[[nodiscard]] std::uint32_t displayNumber(std::string_view monitorName);

/// A monitor: the name of its connector, and the identity of its display (`Edid::identity`) if it has one.
struct Monitor {
    std::string connector;
    std::optional<std::string> identity;
};

/// One UUID for each monitor, in the same order: version 5 (RFC 4122, SHA-1 of the identity in a namespace of
/// our own), upper case without braces; absent for a monitor without identity. Connected monitors with equal
/// identities get their connectors mixed in, so that all UUIDs differ.
[[nodiscard]] std::vector<std::optional<std::string>> uuids(const std::vector<Monitor>& monitors);

} // namespace quillary::ScreenIdentity
