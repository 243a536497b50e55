#include "core/FileUrl.h"

#include "core/AsciiText.h"
#include "core/Utf8.h"

#include <uriparser/Uri.h>

#include <algorithm>
#include <cstddef>
#include <memory>

namespace quillary {

namespace {

constexpr std::size_t longestUrl = std::size_t{16} * 1024;

struct FreeUri {
    void operator()(UriUriA* uri) const { uriFreeUriMembersA(uri); }
};

std::string_view text(const UriTextRangeA& range) {
    return range.first == nullptr ? std::string_view{} : std::string_view(range.first, range.afterLast);
}

bool isOnThisHost(const UriUriA& uri) {
    const std::string_view host = text(uri.hostText);
    return uri.userInfo.first == nullptr && uri.portText.first == nullptr &&
           (host.empty() || equalIgnoringCase(host, "localhost"));
}

bool hasAbsolutePath(const UriUriA& uri) {
    // uriparser sets `absolutePath` only without an authority; after one, a path always begins with a slash.
    return uri.hostText.first != nullptr ? uri.pathHead != nullptr : uri.absolutePath != URI_FALSE;
}

std::string decoded(std::string_view escaped) {
    std::string result(escaped);
    const char* end = uriUnescapeInPlaceExA(result.data(), URI_FALSE, URI_BR_DONT_TOUCH);
    result.resize(static_cast<std::size_t>(end - result.data()));
    return result;
}

std::string pathComponent(const UriUriA& uri) {
    std::string path;
    for (const UriPathSegmentA* segment = uri.pathHead; segment != nullptr; segment = segment->next) {
        // An empty last segment is the trailing slash.
        if (segment->next == nullptr && text(segment->text).empty()) {
            break;
        }
        path += '/';
        path += decoded(text(segment->text));
    }
    return path.empty() ? "/" : path;
}

} // namespace

std::optional<std::string> pathOfFileUrl(std::string_view url) {
    if (url.size() > longestUrl) {
        return std::nullopt;
    }
    UriUriA uri{};
    if (uriParseSingleUriExA(&uri, url.data(), url.data() + url.size(), nullptr) != URI_SUCCESS) {
        return std::nullopt;
    }
    const std::unique_ptr<UriUriA, FreeUri> owner(&uri);
    if (!equalIgnoringCase(text(uri.scheme), "file") || !isOnThisHost(uri) || !hasAbsolutePath(uri)) {
        return std::nullopt;
    }
    std::string path = pathComponent(uri);
    if (path.find('\0') != std::string::npos || !isValidUtf8(path)) {
        return std::nullopt;
    }
    return path;
}

} // namespace quillary
