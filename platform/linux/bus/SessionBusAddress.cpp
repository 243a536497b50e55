#include "platform/linux/bus/SessionBusAddress.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace quillary::SessionBusAddress {

namespace {

constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* standIn = "unix:path=/nonexistent/quillary-session-bus";

std::string_view valueOf(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool runtimeFolderHasBus() {
    const std::filesystem::path folder = valueOf("XDG_RUNTIME_DIR");
    std::error_code error;
    return folder.is_absolute() && std::filesystem::is_socket(folder / "bus", error);
}

} // namespace

void forbidLaunch() {
    const auto address = valueOf(variable);
    const bool launches = address.starts_with("autolaunch:") || (address.empty() && !runtimeFolderHasBus());
    if (launches) {
        ::setenv(variable, standIn, 1);
    }
}

bool isStandIn() {
    return valueOf(variable) == standIn;
}

} // namespace quillary::SessionBusAddress
