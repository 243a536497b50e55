#include "platform/linux/memory/MachineMemory.h"

#include "core/BoundedFile.h"
#include "platform/linux/memory/ProcTexts.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quillary::MachineMemory {

namespace {

constexpr std::size_t largestFile = std::size_t{64} * 1024;
constexpr std::size_t mostZramDevices = 64;
constexpr std::uint64_t mostBytes = ProcTexts::mostKibibytes * ProcTexts::bytesPerKibibyte;
constexpr double wholeTime = 100.0;
constexpr double stallThatIsNoticed = 10.0;

std::string contentOf(const std::filesystem::path& file) {
    return readBoundedFile(file, largestFile).value_or("");
}

// The number at the start of the text, after spaces; 0 when there is none that can be right.
std::uint64_t leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && value <= mostBytes ? value : 0;
}

// What follows the first line's start that is this word.
std::string_view afterLineStart(std::string_view text, std::string_view word) {
    while (!text.starts_with(word)) {
        const auto end = text.find('\n');
        if (end == std::string_view::npos) {
            return {};
        }
        text.remove_prefix(end + 1);
    }
    text.remove_prefix(word.size());
    return text.substr(0, text.find('\n'));
}

std::uint64_t meminfoBytes(std::string_view meminfo, std::string_view name) {
    return ProcTexts::lineBytes(meminfo, name).value_or(0);
}

std::uint64_t difference(std::uint64_t left, std::uint64_t right) {
    return left > right ? left - right : 0;
}

std::uint64_t compressedBytes(const Texts& texts) {
    std::uint64_t sum = meminfoBytes(texts.meminfo, "Zswap:");
    for (const std::string_view device : texts.zramDevices) {
        constexpr int fieldsBefore = 2;
        std::string_view rest = device;
        for (int field = 0; field < fieldsBefore; ++field) {
            rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
            rest.remove_prefix(std::min(rest.find_first_of(" \t"), rest.size()));
        }
        sum = std::min(sum + leadingNumber(rest), mostBytes);
    }
    return sum;
}

// The share in percent that a line of PSI gives for the last ten seconds.
double stall(std::string_view pressure, std::string_view line) {
    constexpr std::string_view mark = "avg10=";
    const auto text = afterLineStart(pressure, line);
    const auto place = text.find(mark);
    if (place == std::string_view::npos) {
        return 0;
    }
    double value = 0;
    const auto* begin = text.data() + place + mark.size();
    std::from_chars(begin, text.data() + text.size(), value, std::chars_format::fixed);
    // Also no "inf" and no "nan".
    return value <= wholeTime ? value : 0;
}

} // namespace

Texts texts(const std::filesystem::path& root) {
    Texts result{.meminfo = contentOf(root / "proc/meminfo"),
                 .pressure = contentOf(root / "proc/pressure/memory"),
                 .zramDevices = {}};
    // They are numbered from 0; single ones may have been taken away.
    for (std::size_t number = 0; number < mostZramDevices; ++number) {
        auto content = contentOf(root / "sys/block" / ("zram" + std::to_string(number)) / "mm_stat");
        if (!content.empty()) {
            result.zramDevices.push_back(std::move(content));
        }
    }
    return result;
}

MemoryStats stats(const Texts& texts, std::uint64_t pageSize) {
    const std::string_view meminfo = texts.meminfo;
    return {.total = meminfoBytes(meminfo, "MemTotal:"),
            .used = usedBytes(texts, pageSize),
            .swapUsed = difference(meminfoBytes(meminfo, "SwapTotal:"), meminfoBytes(meminfo, "SwapFree:")),
            .pressure = pressure(texts.pressure)};
}

std::uint64_t usedBytes(const Texts& texts, std::uint64_t pageSize) {
    const auto bytes = [&texts](std::string_view name) { return meminfoBytes(texts.meminfo, name); };
    const auto anonymous = bytes("AnonPages:") + bytes("Shmem:");
    const auto listed = bytes("Active(anon):") + bytes("Inactive(anon):") + bytes("Mlocked:");
    const auto wired = bytes("Unevictable:") + bytes("SUnreclaim:") + bytes("KernelStack:") +
                       bytes("PageTables:") + bytes("SecPageTables:") + bytes("Percpu:");
    return MemoryStats::usedBytes(pageSize, anonymous / pageSize, difference(anonymous, listed) / pageSize,
                                  wired / pageSize, compressedBytes(texts) / pageSize);
}

MemoryPressure pressure(std::string_view text) {
    if (stall(text, "full ") >= stallThatIsNoticed) {
        return MemoryPressure::critical;
    }
    return stall(text, "some ") >= stallThatIsNoticed ? MemoryPressure::warning : MemoryPressure::normal;
}

} // namespace quillary::MachineMemory
