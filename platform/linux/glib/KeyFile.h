#pragma once

#include "platform/linux/glib/Released.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <glib.h>

namespace quillary {

/// The values of a file of groups and keys (Desktop Entry standard, "Basic format of the file"). Texts
/// are UTF-8 with escapes decoded. A key that is absent or damaged reads as an empty or false value.
class KeyFile {
public:
    /// Nothing when the file is no regular file, cannot be read, has more than `limit` bytes, or is not in
    /// that format. Never waits on a pipe or a device.
    [[nodiscard]] static std::optional<KeyFile> read(const std::filesystem::path& path, std::size_t limit);
    /// Nothing when the text is not in that format.
    [[nodiscard]] static std::optional<KeyFile> parse(std::string_view text);

    [[nodiscard]] bool has(const char* group, const char* key) const;
    [[nodiscard]] std::string text(const char* group, const char* key) const;
    /// The translation for the user's language; the text itself when there is none.
    [[nodiscard]] std::string localised(const char* group, const char* key) const;
    /// The parts between semicolons.
    [[nodiscard]] std::vector<std::string> list(const char* group, const char* key) const;
    [[nodiscard]] bool flag(const char* group, const char* key) const;

private:
    using Handle = Released<GKeyFile, g_key_file_unref>;

    explicit KeyFile(Handle file);

    Handle m_file;
};

} // namespace quillary
