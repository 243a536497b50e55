#pragma once

#include <cstdint>
#include <string>

namespace quillary::StartupId {

/// The id under which a launcher started this process (DESKTOP_STARTUP_ID of the Startup Notification
/// protocol). It is read from the process's initial environment, because Qt unsets the variable. Empty when
/// it is missing or longer than 1,024 bytes.
[[nodiscard]] std::string own();

/// The time of the user's action, from the "_TIME" that ends an id: milliseconds of the X server's clock. 0
/// when the id has none.
[[nodiscard]] std::uint32_t time(const std::string& id);

} // namespace quillary::StartupId
