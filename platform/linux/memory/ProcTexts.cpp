#include "platform/linux/memory/ProcTexts.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace quillary::ProcTexts {

namespace {

constexpr std::size_t longestCommand = 64;

template<typename Number>
std::optional<Number> number(std::string_view word) {
    Number value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

// Takes words off the front of the text until the one with this index, from 0; empty when there are fewer.
std::string_view wordAt(std::string_view& text, int index) {
    std::string_view word;
    for (int taken = 0; taken <= index; ++taken) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        word = text.substr(0, text.find_first_of(" \n"));
        text.remove_prefix(word.size());
    }
    return word;
}

} // namespace

std::optional<std::uint64_t> lineBytes(std::string_view& text, std::string_view name) {
    for (auto place = text.find(name); place != std::string_view::npos; place = text.find(name, place + 1)) {
        if (place != 0 && text[place - 1] != '\n') {
            continue;
        }
        auto rest = text.substr(place + name.size());
        rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
        text = rest;
        const auto kibibytes = number<std::uint64_t>(rest);
        return kibibytes && *kibibytes <= mostKibibytes ? std::optional(*kibibytes * bytesPerKibibyte)
                                                        : std::nullopt;
    }
    return std::nullopt;
}

std::optional<Stat> stat(std::string_view text) {
    // The name may hold spaces, parentheses and line breaks; no field behind it has a parenthesis.
    const auto open = text.find('(');
    const auto close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        return std::nullopt;
    }
    // Counted from the field behind the name; each index from the one before.
    constexpr int parentField = 1;
    constexpr int startField = 19 - parentField - 1;
    constexpr int residentField = 21 - 19 - 1;
    auto rest = text.substr(close + 1);
    const auto parent = number<std::int32_t>(wordAt(rest, parentField));
    const auto start = number<std::uint64_t>(wordAt(rest, startField));
    const auto resident = number<std::int64_t>(wordAt(rest, residentField));
    if (!parent || !start || !resident) {
        return std::nullopt;
    }
    return Stat{.command = std::string(text.substr(open + 1, std::min(close - open - 1, longestCommand))),
                .parent = *parent,
                .startTime = *start,
                .residentPages = static_cast<std::uint64_t>(std::max<std::int64_t>(*resident, 0))};
}

std::optional<std::uint64_t> resident(std::string_view status) {
    // The process chose the name at the start, but the kernel writes a line break in it as "\n".
    const auto anonymous = lineBytes(status, "RssAnon:");
    const auto shared = lineBytes(status, "RssShmem:");
    const auto swapped = lineBytes(status, "VmSwap:");
    if (!anonymous || !shared) {
        return std::nullopt;
    }
    return *anonymous + *shared + swapped.value_or(0);
}

std::optional<std::uint64_t> footprint(std::string_view rollup) {
    const auto anonymous = lineBytes(rollup, "Pss_Anon:");
    const auto shared = lineBytes(rollup, "Pss_Shmem:");
    if (!anonymous || !shared) {
        return std::nullopt;
    }
    const auto lazilyFreed = lineBytes(rollup, "LazyFree:").value_or(0);
    const auto swapped = lineBytes(rollup, "SwapPss:").value_or(0);
    return *anonymous - std::min(lazilyFreed, *anonymous) + *shared + swapped;
}

} // namespace quillary::ProcTexts
