#include "platform/linux/entries/EntryIndex.h"

#include "core/AsciiText.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>

namespace quillary {

namespace {

constexpr std::size_t longestWord = 512;
constexpr std::size_t webAppIdLength = 32;

constexpr std::array<std::string_view, 12> sharedTails = {"desktop", "app", "application", "client",
                                                          "main",    "gui", "ui",          "window",
                                                          "linux",   "x11", "stable",      "git"};

std::string folded(EntryIndex::Key key, std::string_view word) {
    return key == EntryIndex::Key::path ? std::string(word) : lowered(word);
}

// The entry's own spelling of the key, to prefer an exact match.
std::string_view spelling(EntryIndex::Key key, const DesktopEntry& entry) {
    switch (key) {
    case EntryIndex::Key::startupWmClass:
        return entry.startupWmClass;
    case EntryIndex::Key::id:
        return withoutEntrySuffix(entry.id);
    case EntryIndex::Key::program:
        return entry.program;
    case EntryIndex::Key::sandbox:
        return entry.sandbox;
    default:
        return {};
    }
}

} // namespace

std::string_view reverseDnsTail(std::string_view name) {
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot + 1 == name.size() || dot == 0) {
        return {};
    }
    const auto tail = name.substr(dot + 1);
    const bool shared = std::ranges::find(sharedTails, lowered(tail)) != sharedTails.end();
    const bool isNumber = tail.find_first_not_of("0123456789") == std::string_view::npos;
    return shared || isNumber ? std::string_view() : tail;
}

std::string_view webAppId(std::string_view name) {
    std::size_t begin = 0;
    while (begin < name.size()) {
        const auto end = std::min(name.find_first_of("-_.", begin), name.size());
        const auto part = name.substr(begin, end - begin);
        const bool isId = part.size() == webAppIdLength && std::ranges::all_of(part, [](char letter) {
                              return letter >= 'a' && letter <= 'p';
                          });
        if (isId) {
            return part;
        }
        begin = end + 1;
    }
    return {};
}

EntryIndex::EntryIndex(std::vector<DesktopEntry> found) {
    std::unordered_set<std::string> seen;
    for (auto& entry : found) {
        if (seen.insert(entry.id).second && !entry.hidden) {
            m_all.push_back(std::move(entry));
        }
    }
    for (std::size_t index = 0; index < m_all.size(); ++index) {
        const auto& entry = m_all[index];
        const auto stem = entry.stem();
        add(Key::startupWmClass, entry.startupWmClass, index);
        add(Key::id, stem, index);
        add(Key::idTail, reverseDnsTail(stem), index);
        add(Key::sandbox, entry.sandbox, index);
        // snapd names entries "<snap>_<application>.desktop".
        add(Key::sandbox, entry.sandbox.empty() ? std::string_view(stem).substr(0, stem.find('_')) : "",
            index);
        add(Key::webApp, webAppId(stem), index);
        add(Key::program, entry.program, index);
        add(Key::path, entry.path, index);
    }
    sortBuckets();
}

void EntryIndex::add(Key key, std::string_view word, std::size_t entry) {
    if (!word.empty() && word.size() <= longestWord) {
        m_tables.at(static_cast<std::size_t>(key))[folded(key, word)].push_back(entry);
    }
}

void EntryIndex::sortBuckets() {
    for (auto& table : m_tables) {
        for (auto& [word, bucket] : table) {
            if (bucket.size() < 2) {
                continue;
            }
            const auto rank = [this, &key = word](std::size_t index) {
                const auto& entry = m_all[index];
                const auto stem = lowered(entry.stem());
                const bool isNamed = stem == key || reverseDnsTail(stem) == key;
                return std::tuple(!isNamed, entry.noDisplay, entry.tryExecMissing, entry.arguments,
                                  std::string_view(entry.id));
            };
            std::ranges::sort(bucket, {}, rank);
        }
    }
}

const DesktopEntry* EntryIndex::find(Key key, std::string_view word) const {
    if (key == Key::id) {
        word = withoutEntrySuffix(word);
    }
    if (word.empty() || word.size() > longestWord) {
        return nullptr;
    }
    const auto& table = m_tables.at(static_cast<std::size_t>(key));
    const auto place = table.find(folded(key, word));
    if (place == table.end()) {
        return nullptr;
    }
    const auto& bucket = place->second;
    const auto exact = std::ranges::find_if(
        bucket, [this, key, word](std::size_t index) { return spelling(key, m_all[index]) == word; });
    return &m_all[exact == bucket.end() ? bucket.front() : *exact];
}

} // namespace quillary
