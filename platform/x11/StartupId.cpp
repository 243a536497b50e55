#include "platform/x11/StartupId.h"

#include <charconv>
#include <fstream>
#include <string_view>

namespace quillary::StartupId {

namespace {

constexpr std::string_view variable = "DESKTOP_STARTUP_ID=";
constexpr std::string_view timeMark = "_TIME";
constexpr std::size_t longestId = 1024;

} // namespace

std::string own() {
    std::ifstream file("/proc/self/environ", std::ios::binary);
    std::string entry;
    while (std::getline(file, entry, '\0')) {
        if (entry.starts_with(variable) && entry.size() <= variable.size() + longestId) {
            return entry.substr(variable.size());
        }
    }
    return {};
}

std::uint32_t time(const std::string& id) {
    const auto place = id.rfind(timeMark);
    if (place == std::string::npos) {
        return 0;
    }
    const auto* begin = id.data() + place + timeMark.size();
    const auto* end = id.data() + id.size();
    std::uint32_t value = 0;
    const auto [rest, error] = std::from_chars(begin, end, value);
    return error == std::errc() && rest == end ? value : 0;
}

} // namespace quillary::StartupId
