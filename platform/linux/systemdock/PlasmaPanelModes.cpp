#include "platform/linux/systemdock/PlasmaPanelModes.h"

#include "platform/linux/bus/BusOperation.h"

#include <algorithm>
#include <string_view>

namespace quillary {

namespace {

constexpr BusOperation::Service plasmaShell{"org.kde.plasmashell", "/PlasmaShell", "org.kde.PlasmaShell"};
constexpr std::size_t mostPanels = 64;
constexpr std::size_t longestWord = 32;
constexpr std::string_view away = "autohide";

// ECMAScript 5, which the oldest of Plasma 5's script engines understands.
constexpr const char* readScript =
    R"(panels().forEach(function(panel) { print(panel.id + " " + panel.hiding + "\n"); });)";
constexpr const char* writeScript = "panels().forEach(function(panel) { if (modes[panel.id] !== undefined) "
                                    "{ panel.hiding = modes[panel.id]; } });";

bool isNumber(std::string_view text) {
    return !text.empty() && text.size() <= longestWord &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool isWord(std::string_view text) {
    return !text.empty() && text.size() <= longestWord &&
           std::ranges::all_of(text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

std::string_view nextLine(std::string_view& text) {
    const auto end = text.find('\n');
    const auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

Result<BusOperation::Answer> evaluate(const std::string& script) {
    return BusOperation(plasmaShell).call("evaluateScript", g_variant_new("(s)", script.c_str()), "(s)");
}

} // namespace

Result<SavedValues> PlasmaPanelModes::read() {
    const auto answer = evaluate(readScript);
    if (!answer) {
        return Failure(answer.error());
    }
    SavedValues panels;
    if (*answer == nullptr) {
        return panels;
    }
    const char* output = nullptr;
    g_variant_get(answer->get(), "(&s)", &output);
    std::string_view text = output;
    while (!text.empty() && panels.size() < mostPanels) {
        const auto line = nextLine(text);
        const auto space = line.find(' ');
        if (space == std::string_view::npos) {
            continue;
        }
        if (const auto mode = line.substr(space + 1); isNumber(line.substr(0, space)) && isWord(mode)) {
            panels.emplace(line.substr(0, space), mode);
        }
    }
    return panels;
}

Result<> PlasmaPanelModes::write(const SavedValues& panels) {
    std::string modes;
    for (const auto& [panel, mode] : panels) {
        if (isNumber(panel) && mode && isWord(*mode)) {
            modes.append(modes.empty() ? "" : ", ");
            modes.append("\"" + panel + "\": \"" + *mode + "\"");
        }
    }
    if (modes.empty()) {
        return {};
    }
    const auto answer = evaluate("var modes = {" + modes + "}; " + writeScript);
    if (!answer) {
        return Failure(answer.error());
    }
    return *answer != nullptr ? Result<>() : Failure("plasmashell has gone");
}

bool PlasmaPanelModes::isAway(const std::optional<std::string>& mode) const {
    return mode == away;
}

std::string PlasmaPanelModes::awayFrom(const std::optional<std::string>& /*mode*/) const {
    return std::string(away);
}

std::optional<std::string> PlasmaPanelModes::shown() const {
    return "none";
}

bool PlasmaPanelModes::isMode(const std::string& text) const {
    return isWord(text);
}

} // namespace quillary
