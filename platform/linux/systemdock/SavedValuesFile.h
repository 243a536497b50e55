#pragma once

#include "core/Result.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace quillary {

/// The user's own values while a desktop's dock is hidden: by the name of a setting or of a panel, its value
/// as text, absent when the user has not set it. The writer chooses the text's format.
using SavedValues = std::map<std::string, std::optional<std::string>>;

/// The file that keeps such values across a quit or a crash. It holds what the two values of `DockPrefs`
/// cannot express.
class SavedValuesFile {
public:
    /// `store` creates the folder when it is missing.
    explicit SavedValuesFile(std::filesystem::path path);

    enum class State {
        absent,
        /// The file exists, but cannot be read, is larger than 64 KiB or is not in the format that `store`
        /// writes.
        damaged,
        valid,
    };
    struct Content {
        State state = State::absent;
        /// Empty unless valid.
        SavedValues values;
    };
    [[nodiscard]] Content load() const;

    /// Replaces the file atomically, with permissions 0600.
    [[nodiscard]] Result<> store(const SavedValues& values) const;
    void remove() const;

private:
    std::filesystem::path m_path;
};

} // namespace quillary
