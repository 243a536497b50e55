#include "platform/linux/systemdock/DesktopFavourites.h"

#include "core/BoundedFile.h"
#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/glib/SettingsSchema.h"
#include "platform/linux/systemdock/XfceLaunchers.h"

#include <gio/gio.h>

#include <map>

namespace quillary::DesktopFavourites {

namespace {

constexpr std::size_t largestSettings = std::size_t{4} << 20U;
constexpr std::size_t mostItems = 200;

// KConfig's list format: items separated by commas; a comma within an item is escaped with a backslash.
std::vector<std::string> splitList(std::string_view text) {
    std::vector<std::string> items(1);
    for (std::size_t index = 0; index < text.size() && items.size() <= mostItems; ++index) {
        if (text[index] == '\\' && index + 1 < text.size()) {
            items.back() += text[++index];
        } else if (text[index] == ',') {
            items.emplace_back();
        } else {
            items.back() += text[index];
        }
    }
    std::erase(items, "");
    return items;
}

struct Applet {
    bool isTaskManager = false;
    std::optional<std::string> launchers;
};

bool isTaskManager(std::string_view plugin) {
    return plugin == "org.kde.plasma.icontasks" || plugin == "org.kde.plasma.taskmanager";
}

} // namespace

Items ofGnome() {
    constexpr const char* schemaName = "org.gnome.shell";
    constexpr const char* key = "favorite-apps";
    if (!findSettingsSchema(schemaName, {{key, G_VARIANT_TYPE_STRING_ARRAY}})) {
        return std::nullopt;
    }
    const Released<GSettings, g_object_unref> settings(g_settings_new(schemaName));
    return takeTexts(g_settings_get_strv(settings.get(), key));
}

Items ofPlasma(std::string_view appletSettings) {
    constexpr std::string_view general = "[Configuration][General]";
    constexpr std::string_view pluginKey = "plugin=";
    constexpr std::string_view launchersKey = "launchers=";
    // The panels' order is the file's, which a map by group would lose.
    std::vector<std::string> order;
    std::map<std::string, Applet> applets;
    std::string group;
    while (!appletSettings.empty()) {
        const auto end = appletSettings.find('\n');
        const auto line = appletSettings.substr(0, end);
        appletSettings.remove_prefix(end == std::string_view::npos ? appletSettings.size() : end + 1);
        if (line.starts_with('[')) {
            group = line;
        } else if (line.starts_with(pluginKey)) {
            applets[group].isTaskManager = isTaskManager(line.substr(pluginKey.size()));
        } else if (line.starts_with(launchersKey) && group.ends_with(general)) {
            const auto applet = group.substr(0, group.size() - general.size());
            applets[applet].launchers = line.substr(launchersKey.size());
            order.push_back(applet);
        }
    }
    for (const auto& name : order) {
        const auto& applet = applets[name];
        if (applet.isTaskManager && applet.launchers) {
            return splitList(*applet.launchers);
        }
    }
    return std::nullopt;
}

Items ofXfce(const std::filesystem::path& configFolder) {
    const auto text =
        readBoundedFile(configFolder / "xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", largestSettings);
    if (!text) {
        return std::nullopt;
    }
    std::vector<std::string> items;
    for (const auto& file : XfceLaunchers::entryFiles(*text)) {
        const auto path = configFolder / "xfce4" / "panel" / file;
        // The panel keeps a copy of each entry; windows belong to the original.
        auto origin = XfceLaunchers::sourceOf(path);
        items.push_back(origin.empty() ? path.string() : std::move(origin));
        if (items.size() == mostItems) {
            break;
        }
    }
    return items.empty() ? Items() : Items(std::move(items));
}

Items ofDesktop(const CurrentDesktop& desktop, const std::filesystem::path& configFolder) {
    if (desktop.is("GNOME")) {
        return ofGnome();
    }
    if (desktop.is("KDE")) {
        const auto text =
            readBoundedFile(configFolder / "plasma-org.kde.plasma.desktop-appletsrc", largestSettings);
        const auto items = text ? ofPlasma(*text) : Items();
        // Plasma's default launchers, which are not in the file until the user changes them.
        return items ? items
                     : Items({"preferred://filemanager", "preferred://browser",
                              "applications:systemsettings.desktop"});
    }
    return desktop.is("XFCE") ? ofXfce(configFolder) : Items();
}

} // namespace quillary::DesktopFavourites
