#pragma once

#include "platform/linux/entries/EntryIndex.h"

#include <string>

/// The applications that the system's defaults name (MIME Applications Associations, Debian's alternatives).
/// Each is the absolute path of a desktop entry, empty when there is none. They read files, so they are for
/// rare use.
namespace quillary::DefaultApplications {

[[nodiscard]] std::string fileManager(const EntryIndex& entries);
[[nodiscard]] std::string browser(const EntryIndex& entries);
[[nodiscard]] std::string terminal(const EntryIndex& entries);
[[nodiscard]] std::string textEditor(const EntryIndex& entries);
[[nodiscard]] std::string settings(const EntryIndex& entries);

} // namespace quillary::DefaultApplications
