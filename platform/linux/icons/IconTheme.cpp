#include "platform/linux/icons/IconTheme.h"

#include "platform/linux/CurrentDesktop.h"
#include "platform/linux/LinuxFolders.h"
#include "platform/linux/glib/KeyFile.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/glib/SettingsSchema.h"

#include <QIcon>
#include <QStringList>

#include <gio/gio.h>

#include <algorithm>
#include <functional>

namespace quillary::IconTheme {

namespace {

constexpr std::size_t largestSettings = std::size_t{1} << 20U;

// Found on most systems, the most complete ones first.
const std::vector<std::string>& common() {
    static const std::vector<std::string> names{"Adwaita",    "breeze", "Papirus", "Yaru",
                                                "elementary", "oxygen", "gnome",   "hicolor"};
    return names;
}

std::string keyFileText(const std::filesystem::path& path, const char* group, const char* key) {
    const auto file = KeyFile::read(path, largestSettings);
    return file ? file->text(group, key) : std::string();
}

std::string ofKde(const std::filesystem::path& configFolder) {
    return keyFileText(configFolder / "kdeglobals", "Icons", "Theme");
}

std::string ofGtk(const std::filesystem::path& configFolder) {
    return keyFileText(configFolder / "gtk-3.0" / "settings.ini", "Settings", "gtk-icon-theme-name");
}

std::string ofGnome() {
    constexpr const char* schemaName = "org.gnome.desktop.interface";
    constexpr const char* key = "icon-theme";
    if (!findSettingsSchema(schemaName, {{key, G_VARIANT_TYPE_STRING}})) {
        return {};
    }
    const Released<GSettings, g_object_unref> settings(g_settings_new(schemaName));
    // The schema's default is GNOME's own theme, whatever desktop runs.
    const Released<GVariant, g_variant_unref> value(g_settings_get_user_value(settings.get(), key));
    return value ? std::string(g_variant_get_string(value.get(), nullptr)) : std::string();
}

bool isFolderName(const std::string& name) {
    return !name.empty() && name.find('/') == std::string::npos && !name.starts_with('.');
}

std::vector<std::filesystem::path> themeFolders() {
    std::vector<std::filesystem::path> folders;
    for (const auto& folder : QIcon::themeSearchPaths()) {
        folders.emplace_back(folder.toStdString());
    }
    return folders;
}

void addUnthemedFolders() {
    auto folders = QIcon::fallbackSearchPaths();
    for (const auto& folder : LinuxFolders::systemData()) {
        const auto path = QString::fromStdString((folder / "pixmaps").lexically_normal().string());
        if (!folders.contains(path)) {
            folders.append(path);
        }
    }
    QIcon::setFallbackSearchPaths(folders);
}

} // namespace

std::string chosenByUser(const std::filesystem::path& configFolder, const CurrentDesktop& desktop) {
    const auto gnome = [] { return ofGnome(); };
    const auto gtk = [&configFolder] { return ofGtk(configFolder); };
    const auto kde = [&configFolder] { return ofKde(configFolder); };
    using Order = std::vector<std::function<std::string()>>;
    for (const auto& read : desktop.is("KDE") ? Order{kde, gtk, gnome} : Order{gnome, gtk, kde}) {
        if (auto name = read(); isFolderName(name)) {
            return name;
        }
    }
    return {};
}

std::string firstInstalled(const std::vector<std::string>& names,
                           const std::vector<std::filesystem::path>& folders) {
    const auto installed = [&folders](const std::string& name) {
        return isFolderName(name) && std::ranges::any_of(folders, [&name](const auto& folder) {
                   std::error_code error;
                   return std::filesystem::is_regular_file(folder / name / "index.theme", error);
               });
    };
    const auto place = std::ranges::find_if(names, installed);
    return place == names.end() ? std::string() : *place;
}

void apply(const std::string& ofSession) {
    std::vector<std::string> names{
        !ofSession.empty() ? ofSession
                           : chosenByUser(LinuxFolders::configuration(), CurrentDesktop::ofSession())};
    // Qt names "hicolor" when it knows no theme.
    if (const auto found = QIcon::themeName(); found != QStringLiteral("hicolor")) {
        names.push_back(found.toStdString());
    }
    names.insert(names.end(), common().begin(), common().end());
    const auto folders = themeFolders();
    if (const auto name = firstInstalled(names, folders); !name.empty()) {
        QIcon::setThemeName(QString::fromStdString(name));
    }
    if (const auto fallback = firstInstalled(common(), folders); !fallback.empty()) {
        QIcon::setFallbackThemeName(QString::fromStdString(fallback));
    }
    addUnthemedFolders();
}

} // namespace quillary::IconTheme
