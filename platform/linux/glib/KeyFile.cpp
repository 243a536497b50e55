#include "platform/linux/glib/KeyFile.h"

#include "core/BoundedFile.h"
#include "platform/linux/glib/GlibText.h"

#include <utility>

namespace quillary {

KeyFile::KeyFile(Handle file) : m_file(std::move(file)) {}

std::optional<KeyFile> KeyFile::read(const std::filesystem::path& path, std::size_t limit) {
    const auto text = readBoundedFile(path, limit);
    return text ? parse(*text) : std::nullopt;
}

std::optional<KeyFile> KeyFile::parse(std::string_view text) {
    Handle file(g_key_file_new());
    const auto loaded =
        g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr);
    return loaded != FALSE ? std::optional(KeyFile(std::move(file))) : std::nullopt;
}

bool KeyFile::has(const char* group, const char* key) const {
    return g_key_file_has_key(m_file.get(), group, key, nullptr) != FALSE;
}

std::string KeyFile::text(const char* group, const char* key) const {
    return takeText(g_key_file_get_string(m_file.get(), group, key, nullptr));
}

std::string KeyFile::localised(const char* group, const char* key) const {
    return takeText(g_key_file_get_locale_string(m_file.get(), group, key, nullptr, nullptr));
}

std::vector<std::string> KeyFile::list(const char* group, const char* key) const {
    return takeTexts(g_key_file_get_string_list(m_file.get(), group, key, nullptr, nullptr));
}

bool KeyFile::flag(const char* group, const char* key) const {
    return g_key_file_get_boolean(m_file.get(), group, key, nullptr) != FALSE;
}

} // namespace quillary
