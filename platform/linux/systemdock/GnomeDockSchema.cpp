#include "platform/linux/systemdock/GnomeDockSchema.h"

#include "core/DockPrefs.h"
#include "platform/linux/LinuxFolders.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <vector>

namespace quillary::GnomeDockSchema {

namespace {

namespace fs = std::filesystem;
using Source = Released<GSettingsSchemaSource, g_settings_schema_source_unref>;
using Key = Released<GSettingsSchemaKey, g_settings_schema_key_unref>;
using Value = Released<GVariant, g_variant_unref>;

constexpr const char* name = "org.gnome.shell.extensions.dash-to-dock";

std::vector<fs::path> extensionFolders() {
    auto bases = LinuxFolders::systemData();
    bases.insert(bases.begin(), LinuxFolders::data());
    std::vector<fs::path> folders;
    for (const auto& base : bases) {
        for (const char* extension : {"dash-to-dock@micxgx.gmail.com", "ubuntu-dock@ubuntu.com"}) {
            folders.push_back(base / "gnome-shell/extensions" / extension / "schemas");
        }
    }
    return folders;
}

Schema usable(GSettingsSchemaSource* source) {
    return findSettingsSchema(name, {{autohide, G_VARIANT_TYPE_BOOLEAN}, {showDelay, G_VARIANT_TYPE_DOUBLE}},
                              source);
}

} // namespace

Schema find() {
    auto* common = g_settings_schema_source_get_default();
    if (auto schema = usable(common)) {
        return schema;
    }
    for (const auto& folder : extensionFolders()) {
        const Source source(
            g_settings_schema_source_new_from_directory(folder.c_str(), common, FALSE, nullptr));
        if (auto schema = usable(source.get())) {
            return schema;
        }
    }
    return nullptr;
}

bool takes(GSettingsSchema* schema, const char* key, GVariant* value) {
    if (!hasSettingsKey(schema, {key, g_variant_get_type(value)})) {
        return false;
    }
    const Key found(g_settings_schema_get_key(schema, key));
    return g_settings_schema_key_range_check(found.get(), value) != 0;
}

double hidingDelay(GSettingsSchema* schema) {
    const double wanted = *DockPrefs::hidden.delay;
    const Value value(g_variant_ref_sink(g_variant_new_double(wanted)));
    if (takes(schema, showDelay, value.get())) {
        return wanted;
    }
    const Key key(g_settings_schema_get_key(schema, showDelay));
    const Value range(g_settings_schema_key_get_range(key.get()));
    const char* kind = nullptr;
    GVariant* within = nullptr;
    g_variant_get(range.get(), "(&sv)", &kind, &within);
    const Value limits(within);
    double least = 0;
    double greatest = 0;
    if (std::string_view(kind) == "range") {
        g_variant_get(limits.get(), "(dd)", &least, &greatest);
    }
    return greatest;
}

} // namespace quillary::GnomeDockSchema
