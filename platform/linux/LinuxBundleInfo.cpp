#include "platform/linux/LinuxBundleInfo.h"

#include "core/BoundedFile.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace quillary {

namespace {

using nlohmann::json;

constexpr std::size_t largestFile = std::size_t{64} << 10U;
constexpr std::size_t longestText = 64;

std::optional<std::string> line(const json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string()) {
        return std::nullopt;
    }
    const auto& text = found->get_ref<const std::string&>();
    const bool isLine =
        !text.empty() && text.size() <= longestText &&
        std::ranges::none_of(text, [](char letter) { return static_cast<unsigned char>(letter) < ' '; });
    return isLine ? std::optional(text) : std::nullopt;
}

} // namespace

BundleInfo readBundleInfo(const std::filesystem::path& file) {
    const auto text = readBoundedFile(file, largestFile);
    const json root = text ? json::parse(*text, nullptr, false) : json();
    if (!root.is_object()) {
        return {};
    }
    return {.shortVersion = line(root, "CFBundleShortVersionString"), .build = line(root, "CFBundleVersion")};
}

std::filesystem::path bundleInfoFile(const std::filesystem::path& program) {
    return program.parent_path() / ".." / "share" / "quillary" / "bundle.json";
}

} // namespace quillary
