#pragma once

#include <chrono>
#include <string>
#include <vector>

// GIO's connection; its headers stay out of ours.
using GDBusConnection = struct _GDBusConnection; // NOLINT(bugprone-reserved-identifier)

namespace quillary::SessionBus {

enum class State {
    connected,
    /// There is no session bus, or it refuses us.
    absent,
    /// It takes the connection but doesn't answer.
    silent,
};

struct Connection {
    State state = State::absent;
    /// Lives as long as the program; null unless connected.
    GDBusConnection* bus = nullptr;
};

/// The connection to the session bus that the whole process shares. Waits for it, at most the given time:
/// never call it on the main thread. Its end does not end the program.
[[nodiscard]] Connection connect(std::chrono::milliseconds longest);

/// Asks the file manager to show the files of the URIs, selected (org.freedesktop.FileManager1, File Manager
/// DBus Interface). Waits for the answer; false when there is none or it is an error. Not for the main
/// thread.
[[nodiscard]] bool showItems(GDBusConnection* bus, const std::vector<std::string>& uris,
                             const std::string& startupId);

} // namespace quillary::SessionBus
