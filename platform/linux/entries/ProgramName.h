#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillary {

/// Whether a base name is that of a program that runs other programs' code (a shell, python3, java, electron
/// …), so that it does not identify an application.
[[nodiscard]] bool isInterpreter(std::string_view name);

/// The name of the program that a command line really runs: the base name of the executable, past `env` and
/// similar wrappers; for interpreters the script's, module's or archive's name without its extension; for
/// Windows programs their name with ".exe", in lower case. Empty when the command line names no program that
/// identifies an application ("sh -c …", "flatpak run …", an interpreter alone).
[[nodiscard]] std::string programName(const std::vector<std::string>& arguments);

} // namespace quillary
