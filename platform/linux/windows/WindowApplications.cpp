#include "platform/linux/windows/WindowApplications.h"

#include "platform/linux/windows/WindowMatcher.h"

#include <algorithm>
#include <utility>

namespace quillary {

namespace {

// Windows may name each other as parents.
constexpr int longestParentChain = 16;

WindowApplication* findByPath(std::vector<WindowApplication>& list, const std::string& path) {
    const auto place = std::ranges::find(list, path, &WindowApplication::path);
    return place == list.end() ? nullptr : &*place;
}

} // namespace

WindowApplications::WindowApplications(ProcessReader processes) : m_processes(std::move(processes)) {}

void WindowApplications::forgetMatches() {
    m_matches.clear();
}

void WindowApplications::update(const std::vector<WindowInfo>& windows, const EntryIndex& entries) {
    matchWindows(windows, entries);
    auto next = group(windows);
    for (auto& application : next) {
        const auto* before = findByPath(m_applications, application.path);
        application.handle = before != nullptr ? before->handle : ++m_lastHandle;
    }
    // Handles are given out in the order of the starts.
    std::ranges::sort(next, {}, &WindowApplication::handle);
    m_applications = std::move(next);
}

void WindowApplications::matchWindows(const std::vector<WindowInfo>& windows, const EntryIndex& entries) {
    for (auto& [id, match] : m_matches) {
        match.current = false;
    }
    const WindowMatcher matcher(entries);
    for (const auto& window : windows) {
        auto& match = m_matches[window.id];
        if (match.window != window) {
            const auto* entry = matcher.match(window, m_processes.read(window.pid));
            match.window = window;
            match.path = entry != nullptr ? entry->path : std::string();
            match.id = entry != nullptr ? entry->id : std::string();
        }
        match.current = true;
    }
    std::erase_if(m_matches, [](const auto& item) { return !item.second.current; });
}

const WindowApplications::Match& WindowApplications::matchOf(const WindowInfo& window) const {
    const auto* own = &m_matches.at(window.id);
    const auto* best = own;
    const auto* step = own;
    for (int level = 0; level < longestParentChain && step->window.transientFor != 0; ++level) {
        const auto parent = m_matches.find(step->window.transientFor);
        if (parent == m_matches.end()) {
            break;
        }
        step = &parent->second;
        if (!step->path.empty()) {
            best = step;
        }
    }
    return *best;
}

std::vector<WindowApplication> WindowApplications::group(const std::vector<WindowInfo>& windows) const {
    std::vector<WindowApplication> result;
    for (const auto& window : windows) {
        const auto& match = matchOf(window);
        if (window.normal && !match.path.empty() && findByPath(result, match.path) == nullptr) {
            result.push_back({.handle = 0, .path = match.path, .id = match.id, .windows = {}});
        }
    }
    for (const auto& window : windows) {
        if (auto* application = findByPath(result, matchOf(window).path)) {
            application->windows.push_back(window.id);
        }
    }
    return result;
}

const WindowApplication* WindowApplications::owner(std::uint64_t window) const {
    const auto place = std::ranges::find_if(m_applications, [window](const WindowApplication& application) {
        return std::ranges::find(application.windows, window) != application.windows.end();
    });
    return place == m_applications.end() ? nullptr : &*place;
}

} // namespace quillary
