#include "core/Fatal.h"
#include "core/MemoryReader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <mach/mach.h>
#include <sys/sysctl.h>
#include <sys/types.h>
#include <unistd.h>

namespace quillary::MemoryReader {

namespace {

// In 32-bit words. Larger than the kernel's present record, whose size the call returns.
constexpr mach_msg_type_number_t statisticsWords = 62;
static_assert(sizeof(xsw_usage) == 32);

// The value of a name of sysctl; zero on failure.
template<typename Value>
Value systemValue(const char* name) {
    Value value{};
    std::size_t size = sizeof(value);
    return ::sysctlbyname(name, &value, &size, nullptr, 0) == 0 ? value : Value{};
}

} // namespace

std::uint64_t used() {
    std::array<integer_t, statisticsWords> words{};
    mach_msg_type_number_t count = statisticsWords;
    if (::host_statistics64(::mach_host_self(), HOST_VM_INFO64, words.data(), &count) != 0) {
        return 0;
    }
    const int pageSize = ::getpagesize();
    if (pageSize < 0) {
        fatal("the size of a memory page is negative");
    }
    vm_statistics64 statistics{};
    // Later systems may return a longer record. The fields that are read here are at its start.
    std::memcpy(&statistics, words.data(), std::min(sizeof(statistics), sizeof(words)));
    return MemoryStats::usedBytes(static_cast<std::uint64_t>(pageSize), statistics.internal_page_count,
                                  statistics.purgeable_count, statistics.wire_count,
                                  statistics.compressor_page_count);
}

MemoryStats read() {
    MemoryStats stats;
    stats.total = systemValue<std::uint64_t>("hw.memsize");
    stats.used = used();
    stats.swapUsed = systemValue<xsw_usage>("vm.swapusage").xsu_used;
    stats.pressure =
        memoryPressureFromKernelLevel(systemValue<std::uint32_t>("kern.memorystatus_vm_pressure_level"));
    return stats;
}

} // namespace quillary::MemoryReader
