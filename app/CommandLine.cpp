#include "app/CommandLine.h"

#include "core/SingleLine.h"

namespace quillary {

namespace {

constexpr std::string_view usage = "Usage: quillary\n"
                                   "Shows a dock on every screen. All settings are made in its windows.\n"
                                   "\n"
                                   "  --help     print this text and exit\n"
                                   "  --version  print the version and exit\n";

// Bytes of an unknown argument that are repeated.
constexpr std::size_t longestQuote = 200;

// The conventional status for wrong usage.
constexpr int wrongUsage = 2;

} // namespace

std::optional<CommandLineAnswer> answerTo(std::span<const char* const> arguments, std::string_view version) {
    if (arguments.size() < 2) {
        return std::nullopt;
    }
    const std::string argument = arguments[1];
    if (argument == "--help") {
        return CommandLineAnswer{.text = std::string(usage)};
    }
    if (argument == "--version") {
        return CommandLineAnswer{.text = "Quillary " + std::string(version) + "\n"};
    }
    return CommandLineAnswer{
        .text = "Quillary: there are no options: " + singleLine(argument, longestQuote, "?") + "\n",
        .status = wrongUsage};
}

} // namespace quillary
