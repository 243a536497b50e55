#pragma once

#include "platform/linux/glib/SettingsSchema.h"

/// The GSettings schema that Dash to Dock and Ubuntu's dock share.
namespace quillary::GnomeDockSchema {

using Schema = SettingsSchema;

inline constexpr const char* autohide = "autohide";
/// Seconds, a double.
inline constexpr const char* showDelay = "show-delay";

/// Looks where GSettings does, then in the folders of the extensions themselves, the user's before the
/// system's (XDG Base Directory standard). Null when the schema isn't there or hasn't the two keys.
[[nodiscard]] Schema find();

/// Whether the key exists and takes the value.
[[nodiscard]] bool takes(GSettingsSchema* schema, const char* key, GVariant* value);

/// The delay that hides the dock, in seconds: 1,000, or the greatest one that the schema allows.
[[nodiscard]] double hidingDelay(GSettingsSchema* schema);

} // namespace quillary::GnomeDockSchema
