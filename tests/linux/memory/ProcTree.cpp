#include "tests/linux/memory/ProcTree.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace quillary::test {

namespace {

constexpr std::uint64_t kibibytesPerPage = 4;

void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
}

void link(const std::string& target, const std::filesystem::path& place) {
    if (!target.empty()) {
        std::filesystem::create_symlink(target, place);
    }
}

std::string statOf(const ProcEntry& process) {
    return std::to_string(process.pid) + " (" + process.name + ") S " + std::to_string(process.parent) +
           " 1 1 0 -1 4194560 10 20 0 0 3 4 0 0 20 0 1 0 " + std::to_string(process.start) + " 9000000 " +
           std::to_string(process.resident / kibibytesPerPage) + " 18446744073709551615 1 1 0 0 0 0 0 0 0\n";
}

std::string line(const std::string& name, std::uint64_t kibibytes) {
    return name + ":\t" + std::to_string(kibibytes) + " kB\n";
}

std::string statusOf(const ProcEntry& process) {
    return "Name:\tprogram\nState:\tS (sleeping)\n" + line("VmRSS", process.resident) +
           line("RssAnon", process.anonymous) + line("RssFile", 7) + line("RssShmem", process.shared) +
           line("VmData", 900) + line("VmSwap", process.swapped) + "Threads:\t1\n";
}

std::string rollupOf(const ProcEntry::Exact& exact) {
    return "55e7adc2f000-7ffe9ce81000 ---p 00000000 00:00 0                          [rollup]\n" +
           line("Rss", 99999) + line("Pss", 88888) + line("Pss_Dirty", 7777) +
           line("Pss_Anon", exact.anonymous) + line("Pss_File", 6666) + line("Pss_Shmem", exact.shared) +
           line("LazyFree", exact.lazilyFreed) + line("Swap", 55555) + line("SwapPss", exact.swapped) +
           line("Locked", 0);
}

} // namespace

ProcTree::ProcTree() {
    std::string name = (std::filesystem::temp_directory_path() / "quillary-proc-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    m_folder = name;
    std::filesystem::create_directories(proc());
}

ProcTree::~ProcTree() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void ProcTree::put(const ProcEntry& process) const {
    const auto place = of(process.pid);
    remove(process.pid);
    std::filesystem::create_directories(place);
    write(place / "stat", statOf(process));
    write(place / "status", statusOf(process));
    write(place / "cgroup", "0::" + process.group + "\n");
    write(place / "environ", process.environment);
    write(place / "cmdline", process.executable + '\0');
    if (process.exact) {
        write(place / "smaps_rollup", rollupOf(*process.exact));
    }
    std::filesystem::create_directories(place / "ns");
    link(process.executable, place / "exe");
    link(process.pidNamespace, place / "ns/pid");
    link(process.mountNamespace, place / "ns/mnt");
}

void ProcTree::remove(std::int32_t pid) const {
    std::filesystem::remove_all(of(pid));
}

std::string launchVariables(const std::string& entry, std::int32_t pid) {
    return "GIO_LAUNCHED_DESKTOP_FILE=" + entry + '\0' +
           "GIO_LAUNCHED_DESKTOP_FILE_PID=" + std::to_string(pid) + '\0';
}

} // namespace quillary::test
