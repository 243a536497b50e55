#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillary {

/// How the program answers its command line and ends, instead of running.
struct CommandLineAnswer {
    /// One or more whole lines.
    std::string text;
    /// The exit status; `text` goes to standard output with 0, to standard error otherwise.
    int status = 0;

    bool operator==(const CommandLineAnswer&) const = default;
};

/// The answer to the arguments, of which the first is the program's name; nothing when there are no others
/// and the program is to run. Only `--help` and `--version` are known. The first argument decides.
[[nodiscard]] std::optional<CommandLineAnswer> answerTo(std::span<const char* const> arguments,
                                                        std::string_view version);

} // namespace quillary
