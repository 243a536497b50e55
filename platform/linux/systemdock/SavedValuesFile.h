#pragma once

#include "core/Result.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace quillary {

/// What belongs to the user while a desktop's dock is hidden: the name of a setting or of a panel, and its
/// value as text; none when it had no value of its own. The text's form is its writer's.
using SavedValues = std::map<std::string, std::optional<std::string>>;

/// The file in which such values survive the program's end, however it comes. It holds what the two values
/// of `DockPrefs` cannot.
class SavedValuesFile {
public:
    /// The folder above the file is made when it is needed.
    explicit SavedValuesFile(std::filesystem::path path);

    enum class State {
        absent,
        /// There is one, but it can't be read, is larger than 64 KiB or is not of our making.
        damaged,
        valid,
    };
    struct Content {
        State state = State::absent;
        /// Empty unless valid.
        SavedValues values;
    };
    [[nodiscard]] Content load() const;

    /// Replaces the file at once, so that it is never seen half written, with permissions 0600.
    [[nodiscard]] Result<> store(const SavedValues& values) const;
    void remove() const;

private:
    std::filesystem::path m_path;
};

} // namespace quillary
