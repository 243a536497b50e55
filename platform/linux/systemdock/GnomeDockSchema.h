#pragma once

#include "platform/linux/glib/SettingsSchema.h"

/// The GSettings schema that Dash to Dock and Ubuntu's dock share.
namespace quillary::GnomeDockSchema {

using Schema = SettingsSchema;

inline constexpr const char* autohide = "autohide";
/// Seconds, a double.
inline constexpr const char* showDelay = "show-delay";

/// Looks where GSettings does, then in the folders of the extensions themselves, the user's before the
/// system's (XDG Base Directory standard). Null when the schema is not found or lacks one of the two keys.
[[nodiscard]] Schema find();

/// Whether the key exists and the value is within its type and range.
[[nodiscard]] bool takes(GSettingsSchema* schema, const char* key, GVariant* value);

/// The delay that keeps the dock hidden, in seconds: 1,000, or the greatest that the schema allows.
[[nodiscard]] double hidingDelay(GSettingsSchema* schema);

} // namespace quillary::GnomeDockSchema
