#pragma once

#include "core/Result.h"

#include <filesystem>
#include <string_view>

namespace quillary::AtomicFile {

/// Makes `bytes` the content of the file at `target`, with permissions 0600. A reader, and anybody who looks
/// after a crash at any moment, sees the old content or the new one whole: the bytes go to a temporary file
/// in the same folder, are flushed to the disk, and the temporary file is renamed. A symbolic link at
/// `target` stays one and the file it leads to is replaced, or created when it is missing.
///
/// The temporary file has one fixed name for each target (".<name>.tmp") and is locked while it is written,
/// so that what a killed writer leaves behind is used by the next one, and two writers do not mix.
///
/// On failure the old file is whole and no temporary file is left. Only an error of the last step, flushing
/// the folder, is returned with the new content already in place. The folder must exist, and what is at
/// `target`, if anything, must be a regular file.
[[nodiscard]] Result<> write(const std::filesystem::path& target, std::string_view bytes);

/// The same with the content of the regular file at `source`, of any size, which is not held in memory. Fails
/// when `source` cannot be read.
[[nodiscard]] Result<> copy(const std::filesystem::path& source, const std::filesystem::path& target);

} // namespace quillary::AtomicFile
