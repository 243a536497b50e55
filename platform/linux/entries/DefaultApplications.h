#pragma once

#include "platform/linux/entries/EntryIndex.h"

#include <filesystem>
#include <string>

/// The applications that the system's defaults name (MIME Applications Associations, Debian's alternatives).
/// Each is the absolute path of a desktop entry, empty when there is none. Each call reads files: not for
/// frequent use.
namespace quillary::DefaultApplications {

[[nodiscard]] std::string fileManager(const EntryIndex& entries);
[[nodiscard]] std::string browser(const EntryIndex& entries);
/// The terminal emulator that Debian's alternatives system chose, else the first installed one; entries that
/// are not displayed are passed over. `alternatives` is the folder of update-alternatives(1).
[[nodiscard]] std::string terminal(const EntryIndex& entries,
                                   const std::filesystem::path& alternatives = "/etc/alternatives");
[[nodiscard]] std::string textEditor(const EntryIndex& entries);
[[nodiscard]] std::string settings(const EntryIndex& entries);

} // namespace quillary::DefaultApplications
