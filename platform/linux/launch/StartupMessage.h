#pragma once

#include <cstdint>
#include <string>

namespace quillary {

/// The description of a program that is being started (freedesktop.org, Startup Notification 0.2). Texts are
/// UTF-8; the message omits empty ones.
struct StartupSequence {
    std::string id = {};
    /// The name that users see.
    std::string name = {};
    std::string icon = {};
    /// The program as the Exec key names it.
    std::string binary = {};
    /// The path of the desktop entry.
    std::string applicationId = {};
    /// The WM_CLASS of the window whose appearance ends the sequence.
    std::string windowClass = {};
    int screen = 0;
    /// Milliseconds of the window system's clock.
    std::uint32_t time = 0;
};

/// The message that begins the sequence: at most 4000 bytes, because receivers drop longer ones. Texts that
/// are not UTF-8, or with which the message would exceed the limit, are omitted. Control characters become
/// spaces.
[[nodiscard]] std::string startupBeginning(const StartupSequence& sequence);

/// The message that ends the sequence with that id.
[[nodiscard]] std::string startupEnd(const std::string& id);

} // namespace quillary
