#include "core/SystemDock.h"

#include "core/BoundedFile.h"
#include "core/FileUrl.h"
#include "core/PropertyListGuard.h"
#include "core/Utf8.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <type_traits>
#include <unordered_set>

namespace quillary::SystemDock {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

struct FreePropertyList {
    void operator()(void* node) const { plist_free(node); }
};

/// The value under `key`, if `node` is a dictionary and the value has the type `type`.
plist_t member(plist_t node, const char* key, plist_type type) {
    if (plist_get_node_type(node) != PLIST_DICT) {
        return nullptr;
    }
    plist_t value = plist_dict_get_item(node, key);
    return plist_get_node_type(value) == type ? value : nullptr;
}

std::optional<std::string> itemPath(plist_t tile) {
    plist_t tileData = member(tile, "tile-data", PLIST_DICT);
    plist_t fileData = member(tileData, "file-data", PLIST_DICT);
    plist_t location = member(fileData, "_CFURLString", PLIST_STRING);
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(location, &length);
    if (text == nullptr) {
        return std::nullopt;
    }
    std::string path(text, length);
    if (!path.starts_with('/')) {
        return pathOfFileUrl(path);
    }
    const bool isUsable = path.find('\0') == std::string::npos && isValidUtf8(path);
    return isUsable ? std::optional(std::move(path)) : std::nullopt;
}

/// The tiles of a group; none when it holds anything else than dictionaries.
std::vector<plist_t> tiles(plist_t group) {
    std::vector<plist_t> result;
    plist_array_iter iteration = nullptr;
    plist_array_new_iter(group, &iteration);
    const std::unique_ptr<std::remove_pointer_t<plist_array_iter>, FreeMemory> owner(iteration);
    plist_t tile = nullptr;
    for (plist_array_next_item(group, iteration, &tile); tile != nullptr;
         plist_array_next_item(group, iteration, &tile)) {
        if (plist_get_node_type(tile) != PLIST_DICT) {
            return {};
        }
        result.push_back(tile);
    }
    return result;
}

} // namespace

std::vector<std::string> paths(plist_t dictionary) {
    std::vector<std::string> result{std::string(finder)};
    std::unordered_set<std::string> seen(result.begin(), result.end());
    for (const char* key : {"persistent-apps", "persistent-others"}) {
        plist_t group = member(dictionary, key, PLIST_ARRAY);
        if (group == nullptr) {
            continue;
        }
        for (plist_t tile : tiles(group)) {
            std::optional<std::string> path = itemPath(tile);
            if (path && seen.insert(*path).second) {
                result.push_back(*std::move(path));
            }
        }
    }
    return result;
}

std::vector<std::string> pathsIn(std::string_view bytes) {
    plist_t root = nullptr;
    if (PropertyListGuard::isHarmless(bytes)) {
        plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    }
    const std::unique_ptr<void, FreePropertyList> owner(root);
    return paths(root);
}

std::vector<std::string> load(const std::filesystem::path& file) {
    return pathsIn(readBoundedFile(file, PropertyListGuard::sizeLimit).value_or(std::string()));
}

} // namespace quillary::SystemDock
