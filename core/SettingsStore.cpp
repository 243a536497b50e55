#include "core/SettingsStore.h"

#include "core/AtomicFile.h"
#include "core/BoundedFile.h"
#include "core/SettingsJson.h"

#include <cerrno>
#include <climits>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace quillary {

namespace {

namespace fs = std::filesystem;

fs::path withSuffix(fs::path url, std::string_view suffix) {
    url += suffix;
    return url;
}

// As with a damaged file, the copy is a courtesy: without it the program starts all the same.
void keepTooLarge(const fs::path& url) {
    std::error_code error;
    if (fs::is_regular_file(url, error) && fs::file_size(url, error) > SettingsStore::sizeLimit && !error) {
        static_cast<void>(AtomicFile::copy(url, withSuffix(url, ".too-large")));
    }
}

Result<> createFolders(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) {
        return {};
    }
    if (auto above = createFolders(folder.parent_path()); !above) {
        return above;
    }
    if (::mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST) {
        return {};
    }
    return Failure(folder.string() + ": " + std::generic_category().message(errno));
}

} // namespace

SettingsStore::SettingsStore(fs::path url) : m_url(std::move(url)) {}

Settings SettingsStore::load() const {
    const std::optional<std::string> content = readBoundedFile(m_url, sizeLimit);
    if (!content) {
        keepTooLarge(m_url);
        return {};
    }
    if (std::optional<Settings> settings = decodeSettings(*content)) {
        return *std::move(settings);
    }
    // The copy is a courtesy: without it the program starts all the same.
    static_cast<void>(AtomicFile::write(withSuffix(m_url, ".broken"), *content));
    return {};
}

Result<> SettingsStore::save(const Settings& settings) const {
    if (m_url.native().size() >= PATH_MAX) {
        // The system would refuse it too, but only after one attempt for each of its folders.
        return Failure(std::generic_category().message(ENAMETOOLONG));
    }
    if (auto folders = createFolders(m_url.parent_path()); !folders) {
        return folders;
    }
    const auto content = encodeSettings(settings);
    if (!content) {
        return Failure(m_url.string() + ": " + content.error());
    }
    if (content->size() > sizeLimit) {
        // Written, it would not be read again at the next start.
        return Failure(m_url.string() + ": " + std::make_error_code(std::errc::file_too_large).message());
    }
    return AtomicFile::write(m_url, *content);
}

} // namespace quillary
