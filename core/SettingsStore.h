#pragma once

#include "core/Result.h"
#include "core/Settings.h"

#include <cstddef>
#include <filesystem>

namespace quillary {

/// The one file that holds the settings. Keeps its location alone: every call reads or writes the whole file.
class SettingsStore {
public:
    /// The bytes up to which a file is read and written. A file of a few screens has some kilobytes.
    static constexpr std::size_t sizeLimit = std::size_t{32} * 1024 * 1024;

    /// Does not touch the file.
    explicit SettingsStore(std::filesystem::path url);

    [[nodiscard]] const std::filesystem::path& url() const { return m_url; }

    /// The settings in the file. A file that is missing or unreadable gives the defaults and nothing is
    /// written. One that is no settings file gives the defaults too, and its bytes are copied to the location
    /// with ".broken" appended. One larger than `sizeLimit` is not looked at: it gives the defaults and is
    /// copied to the location with ".too-large" appended. Copies replace earlier ones atomically; the file
    /// itself stays as it is.
    [[nodiscard]] Settings load() const;

    /// Replaces the file as `AtomicFile::write` does, after creating missing folders (mode 0700, as the XDG
    /// Base Directory rules ask). A location longer than PATH_MAX is refused before anything is created.
    /// Settings that cannot be expressed (see encodeSettings) or that exceed `sizeLimit` leave the file as it
    /// is.
    [[nodiscard]] Result<> save(const Settings& settings) const;

private:
    std::filesystem::path m_url;
};

} // namespace quillary
