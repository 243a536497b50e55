#include "core/DockItems.h"

#include "core/Utf8.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace quillary::DockItems {

namespace {

std::vector<std::string> usableOnce(const std::vector<std::string>& paths) {
    std::vector<std::string> result;
    std::unordered_set<std::string_view> seen;
    for (const std::string& path : paths) {
        if (isValidUtf8(path) && seen.insert(path).second) {
            result.push_back(path);
        }
    }
    return result;
}

} // namespace

std::vector<std::string> adding(const std::vector<std::string>& added, const std::vector<std::string>& items,
                                std::optional<std::ptrdiff_t> index) {
    const std::vector<std::string> block = usableOnce(added);
    std::vector<std::string> result = items;
    const std::ptrdiff_t end = std::ssize(items);
    std::ptrdiff_t insertion = std::clamp<std::ptrdiff_t>(index.value_or(end), 0, end);
    for (const std::string& path : block) {
        const auto found = std::ranges::find(result, path);
        if (found == result.end()) {
            continue;
        }
        if (found - result.begin() < insertion) {
            --insertion;
        }
        result.erase(found);
    }
    result.insert(result.begin() + insertion, block.begin(), block.end());
    return result;
}

std::vector<std::string> moving(const std::vector<std::string>& items, std::ptrdiff_t from,
                                std::ptrdiff_t to) {
    const std::ptrdiff_t count = std::ssize(items);
    if (from < 0 || from >= count || from == to) {
        return items;
    }
    // Clamped before the step past the target, so that no index overflows.
    const std::ptrdiff_t target = from < to ? std::min(to, count) + 1 : to;
    return adding({items[static_cast<std::size_t>(from)]}, items, target);
}

} // namespace quillary::DockItems
