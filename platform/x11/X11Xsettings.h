#pragma once

#include "platform/x11/X11Connection.h"

#include <string>

namespace quillary {

/// The icon theme that the screen's XSETTINGS manager names ("Net/IconThemeName", XSETTINGS standard
/// 0.5), valid UTF-8 otherwise untrusted. Empty when no manager runs or it names none. Four round trips.
[[nodiscard]] std::string xsettingsIconTheme(X11Connection& connection);

} // namespace quillary
