#include "platform/linux/glib/GlibText.h"

#include "platform/linux/glib/Released.h"

#include <glib.h>

namespace quillary {

std::string takeText(char* text) {
    const Released<char, g_free> owner(text);
    return text != nullptr ? std::string(text) : std::string();
}

std::vector<std::string> takeTexts(char** texts) {
    const Released<char*, g_strfreev> owner(texts);
    std::vector<std::string> result;
    for (char** text = texts; text != nullptr && *text != nullptr; ++text) {
        result.emplace_back(*text);
    }
    return result;
}

std::string fileUri(const std::string& path) {
    return takeText(g_filename_to_uri(path.c_str(), nullptr, nullptr));
}

std::string pathOfStoredUri(const std::string& uri) {
    return takeText(g_filename_from_uri(uri.c_str(), nullptr, nullptr));
}

} // namespace quillary
