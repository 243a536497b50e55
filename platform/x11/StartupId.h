#pragma once

#include <cstdint>
#include <string>

namespace quillary::StartupId {

/// The id under which a launcher started this process (DESKTOP_STARTUP_ID of the Startup Notification
/// protocol), from the environment that the process began with: the toolkit takes it out of the present one.
/// Empty when there is none, or one of an unreasonable size.
[[nodiscard]] std::string own();

/// The moment of the user's action that an id ends with ("_TIME" and milliseconds of the X server's clock); 0
/// when it names none.
[[nodiscard]] std::uint32_t time(const std::string& id);

} // namespace quillary::StartupId
