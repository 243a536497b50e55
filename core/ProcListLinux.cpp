#include "core/ProcListLinux.h"

#include "core/ProcList.h"

#include <charconv>
#include <memory>
#include <string_view>
#include <system_error>

#include <dirent.h>

namespace quillary {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// 0 when the name is none of a process.
std::int32_t pidOf(std::string_view name) {
    std::int32_t pid = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
    const bool isNumber = error == std::errc() && end == name.data() + name.size();
    return isNumber && pid > 0 && name.front() != '0' ? pid : 0;
}

} // namespace

std::vector<std::int32_t> ProcListLinux::pids(const std::filesystem::path& root) {
    std::vector<std::int32_t> result;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(root.c_str()));
    if (!folder) {
        return result;
    }
    while (const auto* entry = ::readdir(folder.get())) {
        if (const auto pid = pidOf(entry->d_name); pid > 0) {
            result.push_back(pid);
        }
    }
    return result;
}

std::vector<std::int32_t> ProcList::allPIDs() {
    return ProcListLinux::pids("/proc");
}

} // namespace quillary
