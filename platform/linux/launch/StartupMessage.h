#pragma once

#include <cstdint>
#include <string>

namespace quillary {

/// What a launcher tells of a program that it starts (freedesktop.org, Startup Notification 0.2). Texts are
/// UTF-8; empty ones are left out of the message.
struct StartupSequence {
    std::string id = {};
    /// Shown to the user.
    std::string name = {};
    std::string icon = {};
    /// The program, as Exec names it.
    std::string binary = {};
    /// The path of the desktop entry.
    std::string applicationId = {};
    /// The class of the window that ends the sequence.
    std::string windowClass = {};
    int screen = 0;
    /// Milliseconds of the window system's clock.
    std::uint32_t time = 0;
};

/// The message that begins the sequence. At most 4000 bytes, because receivers drop longer ones: texts for
/// which there is no room are left out. Control characters become spaces.
[[nodiscard]] std::string startupBeginning(const StartupSequence& sequence);

/// The message that ends the sequence of the id.
[[nodiscard]] std::string startupEnd(const std::string& id);

} // namespace quillary
