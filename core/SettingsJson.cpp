#include "core/SettingsJson.h"

#include "core/RawEnum.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quillary {

namespace {

using nlohmann::json;

constexpr int deepestNesting = 64;
constexpr int indent = 2;

namespace key {
constexpr auto screenKey = "screenKey";
constexpr auto screenName = "screenName";
constexpr auto enabled = "enabled";
constexpr auto edge = "edge";
constexpr auto iconSize = "iconSize";
constexpr auto showRunning = "showRunning";
constexpr auto style = "style";
constexpr auto magnification = "magnification";
constexpr auto bounceOnLaunch = "bounceOnLaunch";
constexpr auto autoHide = "autoHide";
constexpr auto items = "items";
constexpr auto autohide = "autohide";
constexpr auto delay = "delay";
constexpr auto docks = "docks";
constexpr auto onboarded = "onboarded";
constexpr auto hideSystemDock = "hideSystemDock";
constexpr auto savedSystemDock = "savedSystemDock";
constexpr auto showMemory = "showMemory";
} // namespace key

// One overload for each type of field; each fails, leaving the field, when the value has another type.

bool read(const json& value, bool& field) {
    if (!value.is_boolean()) {
        return false;
    }
    field = value.get<bool>();
    return true;
}

bool read(const json& value, double& field) {
    if (!value.is_number()) {
        return false;
    }
    field = value.get<double>();
    return true;
}

bool read(const json& value, std::string& field) {
    if (!value.is_string()) {
        return false;
    }
    field = value.get_ref<const std::string&>();
    return true;
}

template<RawEnum E>
bool read(const json& value, E& field) {
    const std::optional<E> known =
        value.is_string() ? fromRawValue<E>(value.get_ref<const std::string&>()) : std::nullopt;
    field = known.value_or(field);
    return known.has_value();
}

bool read(const json& value, DockPrefs& field);
bool read(const json& value, DockConfig& field);

template<typename T>
bool read(const json& value, std::optional<T>& field) {
    return read(value, field.emplace());
}

template<typename T>
T blank() {
    return T{};
}

template<>
DockConfig blank() {
    return {{}, {}, {}};
}

template<typename T>
bool read(const json& value, std::vector<T>& field) {
    if (!value.is_array()) {
        return false;
    }
    field.reserve(value.size());
    for (const json& element : value) {
        if (!read(element, field.emplace_back(blank<T>()))) {
            return false;
        }
    }
    return true;
}

/// Reads the value under `name` into `field`; a missing one and null leave the field's default.
template<typename T>
bool readOptional(const json& object, const char* name, T& field) {
    const auto found = object.find(name);
    return found == object.end() || found->is_null() || read(*found, field);
}

bool read(const json& value, DockPrefs& field) {
    return value.is_object() && readOptional(value, key::autohide, field.autohide) &&
           readOptional(value, key::delay, field.delay);
}

bool read(const json& value, DockConfig& field) {
    if (!value.is_object()) {
        return false;
    }
    const auto screenKey = value.find(key::screenKey);
    return screenKey != value.end() && read(*screenKey, field.screenKey) &&
           readOptional(value, key::screenName, field.screenName) &&
           readOptional(value, key::enabled, field.enabled) && readOptional(value, key::edge, field.edge) &&
           readOptional(value, key::iconSize, field.iconSize) &&
           readOptional(value, key::showRunning, field.showRunning) &&
           readOptional(value, key::style, field.style) &&
           readOptional(value, key::magnification, field.magnification) &&
           readOptional(value, key::bounceOnLaunch, field.bounceOnLaunch) &&
           readOptional(value, key::autoHide, field.autoHide) && readOptional(value, key::items, field.items);
}

bool read(const json& value, Settings& field) {
    return value.is_object() && readOptional(value, key::docks, field.docks) &&
           readOptional(value, key::onboarded, field.onboarded) &&
           readOptional(value, key::hideSystemDock, field.hideSystemDock) &&
           readOptional(value, key::savedSystemDock, field.savedSystemDock) &&
           readOptional(value, key::showMemory, field.showMemory);
}

json written(const DockConfig& config) {
    return {{key::screenKey, config.screenKey},
            {key::screenName, config.screenName},
            {key::enabled, config.enabled},
            {key::edge, rawValue(config.edge)},
            {key::iconSize, config.iconSize},
            {key::showRunning, config.showRunning},
            {key::style, rawValue(config.style)},
            {key::magnification, rawValue(config.magnification)},
            {key::bounceOnLaunch, config.bounceOnLaunch},
            {key::autoHide, config.autoHide},
            {key::items, config.items}};
}

json written(const DockPrefs& prefs) {
    json object = json::object();
    if (prefs.autohide) {
        object[key::autohide] = *prefs.autohide;
    }
    if (prefs.delay) {
        object[key::delay] = *prefs.delay;
    }
    return object;
}

/// The key of a number that JSON cannot express; null when there is none.
const char* keyOfUnwritableNumber(const Settings& settings) {
    if (!std::ranges::all_of(settings.docks,
                             [](const DockConfig& config) { return std::isfinite(config.iconSize); })) {
        return key::iconSize;
    }
    const auto& saved = settings.savedSystemDock;
    return saved && saved->delay && !std::isfinite(*saved->delay) ? key::delay : nullptr;
}

json parsed(std::string_view text) {
    // The library takes a NUL for the end and would not look at what follows.
    if (text.find('\0') != std::string_view::npos) {
        return json::value_t::discarded;
    }
    bool isTooDeep = false;
    const json::parser_callback_t boundDepth = [&isTooDeep](int depth, json::parse_event_t /*event*/,
                                                            json& /*value*/) {
        isTooDeep = isTooDeep || depth > deepestNesting;
        return !isTooDeep;
    };
    json value = json::parse(text.begin(), text.end(), boundDepth, false);
    return isTooDeep ? json(json::value_t::discarded) : value;
}

} // namespace

Result<std::string> encodeSettings(const Settings& settings) {
    if (const char* name = keyOfUnwritableNumber(settings)) {
        return Failure(std::string(name) + " is not a finite number");
    }
    json docks = json::array();
    for (const DockConfig& config : settings.docks) {
        docks.push_back(written(config));
    }
    json object = {{key::docks, std::move(docks)},
                   {key::onboarded, settings.onboarded},
                   {key::hideSystemDock, settings.hideSystemDock},
                   {key::showMemory, settings.showMemory}};
    if (settings.savedSystemDock) {
        object[key::savedSystemDock] = written(*settings.savedSystemDock);
    }
    return object.dump(indent, ' ', false, json::error_handler_t::replace) + '\n';
}

std::optional<Settings> decodeSettings(std::string_view text) {
    Settings settings;
    if (!read(parsed(text), settings)) {
        return std::nullopt;
    }
    return settings;
}

} // namespace quillary
