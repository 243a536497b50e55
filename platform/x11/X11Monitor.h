#pragma once

#include "platform/linux/screens/Edid.h"
#include "platform/x11/X11Connection.h"

#include <QRect>

#include <optional>
#include <string>
#include <vector>

namespace quillary {

/// A monitor as RandR 1.5 reports it.
struct X11Monitor {
    /// The connector's name, or the name of a monitor that the user defined. Valid UTF-8.
    std::string name;
    /// On the root window, in device pixels.
    QRect geometry;
    bool primary = false;
    /// The display's own identification; absent when it provides none.
    std::optional<Edid> edid;

    /// The active monitors, the primary one first, then in the server's order. A monitor that shows the same
    /// area as an earlier one is left out. Empty without monitors or without RandR 1.5.
    [[nodiscard]] static std::vector<X11Monitor> readAll(X11Connection& connection);

    bool operator==(const X11Monitor&) const = default;
};

} // namespace quillary
