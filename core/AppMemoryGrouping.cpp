#include "core/AppMemoryGrouping.h"

#include "core/Fatal.h"

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <unordered_map>

namespace quillary::AppMemoryGrouping {

namespace {

constexpr std::string_view suffix = ".app";

void add(AppUsage& usage, const ProcessSample& sample) {
    usage.pids.push_back(sample.pid);
    if (__builtin_add_overflow(usage.bytes, sample.bytes, &usage.bytes)) {
        fatal("the memory of an application overflowed");
    }
}

} // namespace

std::optional<std::string> bundle(std::string_view path) {
    if (const auto found = path.find(".app/"); found != std::string_view::npos) {
        return std::string(path.substr(0, found + suffix.size()));
    }
    return path.ends_with(suffix) ? std::optional(std::string(path)) : std::nullopt;
}

bool isUserApp(std::string_view bundlePath) {
    return bundlePath.find("/Applications/") != std::string_view::npos &&
           !bundlePath.starts_with("/System/Library/") && !bundlePath.starts_with("/Library/Apple/");
}

std::vector<AppUsage> group(const std::vector<ProcessSample>& samples,
                            const std::optional<std::string>& exclude) {
    std::vector<ProcessSample> ofApplications;
    for (const auto& sample : samples) {
        auto application = bundle(sample.path);
        if (application && isUserApp(*application)) {
            ofApplications.push_back(
                {.pid = sample.pid, .path = std::move(*application), .bytes = sample.bytes});
        }
    }
    return sum(ofApplications, exclude);
}

std::vector<AppUsage> sum(const std::vector<ProcessSample>& samples,
                          const std::optional<std::string>& exclude) {
    std::vector<AppUsage> usages;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const auto& sample : samples) {
        if (sample.bytes == 0 || sample.path == exclude) {
            continue;
        }
        const auto [place, isNew] = places.try_emplace(sample.path, usages.size());
        if (isNew) {
            usages.push_back({.id = sample.path,
                              .name = std::filesystem::path(sample.path).stem().string(),
                              .pids = {},
                              .bytes = 0});
        }
        add(usages[place->second], sample);
    }
    std::ranges::stable_sort(usages, [](const AppUsage& left, const AppUsage& right) {
        return std::tie(right.bytes, left.name) < std::tie(left.bytes, right.name);
    });
    return usages;
}

} // namespace quillary::AppMemoryGrouping
