#include "platform/linux/systemdock/SavedValuesFile.h"

#include "core/AtomicFile.h"
#include "core/BoundedFile.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace quillary {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr std::size_t largestFile = std::size_t{64} << 10U;
constexpr std::size_t mostValues = 256;
constexpr std::size_t longestText = 512;
constexpr int version = 1;
constexpr int indent = 2;
constexpr auto versionKey = "version";
constexpr auto valuesKey = "values";

std::optional<SavedValues> decoded(const std::string& text) {
    const json root = json::parse(text, nullptr, false);
    if (!root.is_object() || root.value(versionKey, json()) != json(version)) {
        return std::nullopt;
    }
    const json object = root.value(valuesKey, json());
    if (!object.is_object() || object.size() > mostValues) {
        return std::nullopt;
    }
    SavedValues values;
    for (const auto& [name, value] : object.items()) {
        if (value.is_null()) {
            values.emplace(name, std::nullopt);
        } else if (value.is_string() && value.get_ref<const std::string&>().size() <= longestText) {
            values.emplace(name, value.get<std::string>());
        } else {
            return std::nullopt;
        }
    }
    return values;
}

std::string encoded(const SavedValues& values) {
    json object = json::object();
    for (const auto& [name, value] : values) {
        object[name] = value ? json(*value) : json();
    }
    const json root{{versionKey, version}, {valuesKey, std::move(object)}};
    return root.dump(indent, ' ', false, json::error_handler_t::replace) + "\n";
}

} // namespace

SavedValuesFile::SavedValuesFile(fs::path path) : m_path(std::move(path)) {}

SavedValuesFile::Content SavedValuesFile::load() const {
    std::error_code error;
    if (fs::symlink_status(m_path, error).type() == fs::file_type::not_found) {
        return {};
    }
    const auto text = readBoundedFile(m_path, largestFile);
    auto values = text ? decoded(*text) : std::nullopt;
    return values ? Content{.state = State::valid, .values = std::move(*values)}
                  : Content{.state = State::damaged, .values = {}};
}

Result<> SavedValuesFile::store(const SavedValues& values) const {
    std::error_code error;
    fs::create_directories(m_path.parent_path(), error);
    return AtomicFile::write(m_path, encoded(values));
}

void SavedValuesFile::remove() const {
    std::error_code ignored;
    fs::remove(m_path, ignored);
}

} // namespace quillary
