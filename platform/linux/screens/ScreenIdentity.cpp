#include "platform/linux/screens/ScreenIdentity.h"

#include <QUuid>

#include <algorithm>

namespace quillary::ScreenIdentity {

namespace {

// Settings hold keys made in this namespace: it must never change.
constexpr QUuid displayNamespace(0x2f0d6a52, 0x7c1e, 0x4b7d, 0x9e, 0x36, 0x51, 0x1c, 0xa8, 0x0f, 0x64, 0xd3);

std::string uuid(const std::string& text) {
    const auto made = QUuid::createUuidV5(displayNamespace, QByteArray::fromStdString(text));
    return made.toString(QUuid::WithoutBraces).toUpper().toStdString();
}

} // namespace

std::uint32_t displayNumber(std::string_view monitorName) {
    std::uint32_t hash = 0x811C9DC5U;
    for (const char character : monitorName) {
        hash ^= static_cast<unsigned char>(character);
        hash *= 0x01000193U;
    }
    return hash;
}

std::vector<std::optional<std::string>> uuids(const std::vector<Monitor>& monitors) {
    std::vector<std::optional<std::string>> result;
    result.reserve(monitors.size());
    for (const auto& monitor : monitors) {
        if (!monitor.identity) {
            result.emplace_back();
            continue;
        }
        const auto equal = std::ranges::count(monitors, monitor.identity, &Monitor::identity);
        result.emplace_back(
            uuid(equal > 1 ? *monitor.identity + "\n" + monitor.connector : *monitor.identity));
    }
    return result;
}

} // namespace quillary::ScreenIdentity
