#pragma once

#include "platform/linux/glib/Released.h"

#include <gio/gio.h>

#include <initializer_list>

namespace quillary {

using SettingsSchema = Released<GSettingsSchema, g_settings_schema_unref>;

/// A key of a GSettings schema and the type of its values.
struct SettingsKey {
    const char* name;
    const GVariantType* type;
};

/// The schema of that name, when it is installed, has a path, and has all of these keys; else null. GSettings
/// ends the program when it is asked for a schema or key that is missing, so ask here first. `source` may be
/// null, which has no schema.
[[nodiscard]] SettingsSchema findSettingsSchema(const char* name, std::initializer_list<SettingsKey> keys,
                                                GSettingsSchemaSource* source);
/// The same among the schemas that GSettings looks through by itself.
[[nodiscard]] SettingsSchema findSettingsSchema(const char* name, std::initializer_list<SettingsKey> keys);

/// Whether the schema has the key, with values of exactly that type.
[[nodiscard]] bool hasSettingsKey(GSettingsSchema* schema, const SettingsKey& key);

} // namespace quillary
