#pragma once

#include "platform/linux/screens/Edid.h"
#include "platform/x11/X11Connection.h"

#include <QRect>

#include <optional>
#include <string>
#include <vector>

namespace quillary {

/// One monitor as RandR 1.5 tells it.
struct X11Monitor {
    /// The name of the connector, or the one that the user gave to a part of a screen. Valid UTF-8.
    std::string name;
    /// Device pixels of the root window.
    QRect geometry;
    bool primary = false;
    /// What the display itself says, when it says so.
    std::optional<Edid> edid;

    /// The monitors that show something, the primary one first, then in the server's order, without mirrors.
    /// Empty when there is none or the server knows no RandR 1.5.
    [[nodiscard]] static std::vector<X11Monitor> readAll(X11Connection& connection);

    bool operator==(const X11Monitor&) const = default;
};

} // namespace quillary
