#include "core/AppMemoryGrouping.h"
#include "core/AppMemorySource.h"
#include "core/ProcList.h"

#include <array>
#include <string_view>
#include <utility>

#include <libproc.h>
#include <sys/proc_info.h>
#include <sys/resource.h>
#include <unistd.h>

namespace quillary {

namespace {

constexpr int shortInfoSize = 64;
static_assert(sizeof(proc_bsdshortinfo) == shortInfoSize);
static_assert(PROC_PIDT_SHORTBSDINFO == 13);

constexpr std::size_t longestPath = 4096;
static_assert(longestPath == PROC_PIDPATHINFO_MAXSIZE);

bool belongsTo(uid_t user, std::int32_t pid) {
    proc_bsdshortinfo info{};
    return ::proc_pidinfo(pid, PROC_PIDT_SHORTBSDINFO, 0, &info, shortInfoSize) == shortInfoSize &&
           info.pbsi_uid == user;
}

std::string executable(std::int32_t pid) {
    std::array<char, longestPath> buffer{};
    if (::proc_pidpath(pid, buffer.data(), longestPath) < 1) {
        return {};
    }
    const std::string_view whole(buffer.data(), buffer.size());
    return std::string(whole.substr(0, whole.find('\0')));
}

std::uint64_t footprint(std::int32_t pid) {
    rusage_info_v2 usage{};
    // The function takes a pointer to the record of any flavour under this type.
    auto* record = reinterpret_cast<rusage_info_t*>(&usage);
    return ::proc_pid_rusage(pid, RUSAGE_INFO_V2, record) == 0 ? usage.ri_phys_footprint : 0;
}

} // namespace

AppMemorySource::AppMemorySource(std::optional<std::string> excludedBundle)
    : exclude(std::move(excludedBundle)), ownUID(::getuid()) {}

std::vector<AppUsage> AppMemorySource::sample() const {
    std::vector<ProcessSample> samples;
    for (const std::int32_t pid : ProcList::allPIDs()) {
        if (!belongsTo(ownUID, pid)) {
            continue;
        }
        std::string path = executable(pid);
        if (path.find(".app/") != std::string::npos) {
            samples.push_back({.pid = pid, .path = std::move(path), .bytes = footprint(pid)});
        }
    }
    return AppMemoryGrouping::group(samples, exclude);
}

} // namespace quillary
