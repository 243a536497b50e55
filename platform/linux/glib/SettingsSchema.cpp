#include "platform/linux/glib/SettingsSchema.h"

#include <algorithm>

namespace quillary {

SettingsSchema findSettingsSchema(const char* name, std::initializer_list<SettingsKey> keys,
                                  GSettingsSchemaSource* source) {
    SettingsSchema schema(source != nullptr ? g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
    const auto isThere = [&schema](const SettingsKey& key) { return hasSettingsKey(schema.get(), key); };
    // A schema without a path serves several objects, each of which has to name its own.
    const bool isUsable =
        schema && g_settings_schema_get_path(schema.get()) != nullptr && std::ranges::all_of(keys, isThere);
    return isUsable ? std::move(schema) : nullptr;
}

SettingsSchema findSettingsSchema(const char* name, std::initializer_list<SettingsKey> keys) {
    return findSettingsSchema(name, keys, g_settings_schema_source_get_default());
}

bool hasSettingsKey(GSettingsSchema* schema, const SettingsKey& key) {
    if (g_settings_schema_has_key(schema, key.name) == 0) {
        return false;
    }
    const Released<GSettingsSchemaKey, g_settings_schema_key_unref> found(
        g_settings_schema_get_key(schema, key.name));
    return g_variant_type_equal(g_settings_schema_key_get_value_type(found.get()), key.type) != 0;
}

} // namespace quillary
