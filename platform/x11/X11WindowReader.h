#pragma once

#include "platform/linux/windows/WindowInfo.h"
#include "platform/x11/X11Connection.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace quillary {

/// Reads the properties by which windows describe themselves: those of ICCCM and EWMH, and toolkits' own.
class X11WindowReader {
public:
    explicit X11WindowReader(X11Connection& connection);

    /// Reads these windows in one round trip. Windows that no longer exist are missing from the result.
    [[nodiscard]] std::unordered_map<xcb_window_t, WindowInfo>
    read(const std::vector<xcb_window_t>& windows) const;
    /// Whether a change of the property can change what `read` returns.
    [[nodiscard]] bool concerns(xcb_atom_t property) const;

private:
    struct Request;
    [[nodiscard]] Request request(xcb_window_t window) const;
    [[nodiscard]] std::optional<WindowInfo> finish(const Request& request) const;

    X11Connection& m_connection;
    std::string m_hostName;
};

} // namespace quillary
