#include "platform/linux/systemdock/XfcePanelModes.h"

#include "platform/linux/bus/BusOperation.h"
#include "platform/linux/glib/GlibText.h"

#include <algorithm>
#include <cstdint>

namespace quillary {

namespace {

using Value = Released<GVariant, g_variant_unref>;

constexpr BusOperation::Service xfconf{"org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf"};
constexpr const char* channel = "xfce4-panel";
constexpr const char* panelList = "/panels";
constexpr std::size_t mostPanels = 64;
constexpr std::size_t longestText = 256;

std::string property(const std::string& panel) {
    return std::string(panelList) + "/" + panel + "/autohide-behavior";
}

// xfconf sends lists as arrays of variants.
Value unwrapped(GVariant* value) {
    return Value(g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT) != 0 ? g_variant_get_variant(value)
                                                                          : g_variant_ref(value));
}

std::optional<std::int64_t> wholeNumber(GVariant* value) {
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_INT32) != 0) {
        return g_variant_get_int32(value);
    }
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) != 0) {
        return g_variant_get_uint32(value);
    }
    return std::nullopt;
}

std::vector<std::string> panelNames(GVariant* list) {
    std::vector<std::string> names;
    if (list == nullptr || g_variant_is_of_type(list, G_VARIANT_TYPE_ARRAY) == 0) {
        return names;
    }
    const auto count = std::min<std::size_t>(g_variant_n_children(list), mostPanels);
    for (std::size_t index = 0; index < count; ++index) {
        const Value child(g_variant_get_child_value(list, index));
        if (const auto id = wholeNumber(unwrapped(child.get()).get()); id && *id >= 0) {
            names.push_back("panel-" + std::to_string(*id));
        }
    }
    return names;
}

// Null unless the text is a value of a basic type.
Value parsed(const std::string& text) {
    if (text.empty() || text.size() > longestText) {
        return nullptr;
    }
    Value value(g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, nullptr));
    const bool isPlain = value && g_variant_type_is_basic(g_variant_get_type(value.get())) != 0;
    return isPlain ? std::move(value) : nullptr;
}

} // namespace

Result<SavedValues> XfcePanelModes::read() {
    const auto answer =
        BusOperation(xfconf).call("GetAllProperties", g_variant_new("(ss)", channel, panelList), "(a{sv})");
    if (!answer) {
        return Failure(answer.error());
    }
    SavedValues panels;
    if (*answer == nullptr) {
        return panels;
    }
    const Value properties(g_variant_get_child_value(answer->get(), 0));
    const Value list(g_variant_lookup_value(properties.get(), panelList, nullptr));
    for (const auto& panel : panelNames(list.get())) {
        const Value mode(g_variant_lookup_value(properties.get(), property(panel).c_str(), nullptr));
        auto text = mode ? takeText(g_variant_print(mode.get(), TRUE)) : std::string();
        // A value that could not be restored exactly is left alone.
        if (!mode || isMode(text)) {
            panels.emplace(panel, mode ? std::optional(std::move(text)) : std::nullopt);
        }
    }
    return panels;
}

Result<> XfcePanelModes::write(const SavedValues& panels) {
    BusOperation operation(xfconf);
    Result<> outcome;
    for (const auto& [panel, mode] : panels) {
        const auto path = property(panel);
        const Value value = mode ? parsed(*mode) : nullptr;
        const auto answer =
            value
                ? operation.call("SetProperty", g_variant_new("(ssv)", channel, path.c_str(), value.get()),
                                 "()")
                : operation.call("ResetProperty", g_variant_new("(ssb)", channel, path.c_str(), FALSE), "()");
        if (!answer) {
            outcome = Failure(answer.error());
        } else if (*answer == nullptr) {
            outcome = Failure("xfconf has gone");
        }
    }
    return outcome;
}

bool XfcePanelModes::isAway(const std::optional<std::string>& mode) const {
    const Value value = mode ? parsed(*mode) : nullptr;
    return value && wholeNumber(value.get()) == 2;
}

std::string XfcePanelModes::awayFrom(const std::optional<std::string>& mode) const {
    const Value value = mode ? parsed(*mode) : nullptr;
    return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_INT32) != 0 ? "2" : "uint32 2";
}

bool XfcePanelModes::isMode(const std::string& text) const {
    return parsed(text) != nullptr;
}

} // namespace quillary
