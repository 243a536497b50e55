#include "core/SettingsJson.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

using quillary::DockConfig;
using quillary::Settings;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// What could be decoded is written in a form that decodes to the same.
void roundTrip(std::string_view text) {
    const std::optional<Settings> settings = quillary::decodeSettings(text);
    if (settings) {
        const auto encoded = quillary::encodeSettings(*settings);
        require(encoded.has_value());
        const std::optional<Settings> again = quillary::decodeSettings(*encoded);
        require(again == settings);
        require(quillary::encodeSettings(*again) == encoded);
    }
}

/// Whatever a record holds, what is written can be loaded, and only numbers that are not finite keep it from
/// being written.
void encodeAnything(std::string_view text) {
    Settings settings({DockConfig("K", std::string(text), {std::string(text)})}, false);
    double number = 0;
    std::memcpy(&number, text.data(), text.size() < sizeof number ? text.size() : sizeof number);
    settings.docks[0].iconSize = number;
    settings.savedSystemDock = quillary::DockPrefs{std::nullopt, number};
    const auto encoded = quillary::encodeSettings(settings);
    require(encoded.has_value() == std::isfinite(number));
    require(!encoded || quillary::decodeSettings(*encoded).has_value());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    roundTrip(text);
    encodeAnything(text);
    return 0;
}
