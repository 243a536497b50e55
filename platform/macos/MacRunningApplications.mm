#import "platform/macos/MacRunningApplications.h"

#include "platform/macos/ApplicationPolicy.h"
#import "platform/macos/MacText.h"

#include <algorithm>

namespace quillary {

namespace {

std::optional<std::string> ifAny(NSString* text) {
    return text == nil ? std::nullopt : std::optional(MacText::plain(text));
}

} // namespace

std::vector<RunningApplication> MacRunningApplications::list() {
    NSArray<NSRunningApplication*>* running = [[NSWorkspace sharedWorkspace] runningApplications];
    std::erase_if(m_entries, [running](const Entry& entry) {
        return [entry.application isTerminated] && ![running containsObject:entry.application];
    });
    std::vector<RunningApplication> found;
    found.reserve([running count]);
    for (NSRunningApplication* application in running) {
        found.push_back(describe(application));
    }
    return found;
}

RunningApplication MacRunningApplications::describe(NSRunningApplication* application) {
    return {.handle = handleOf(application),
            .policy = activationPolicy([application activationPolicy]),
            .bundlePath = ifAny([[application bundleURL] path]),
            .bundleIdentifier = ifAny([application bundleIdentifier])};
}

NSRunningApplication* MacRunningApplications::find(std::uint64_t handle) const {
    const auto found = std::ranges::find(m_entries, handle, &Entry::handle);
    return found == m_entries.end() ? nil : found->application;
}

std::uint64_t MacRunningApplications::handleOf(NSRunningApplication* application) {
    const auto known = std::ranges::find_if(
        m_entries, [application](const Entry& entry) { return [entry.application isEqual:application]; });
    if (known != m_entries.end()) {
        return known->handle;
    }
    m_entries.push_back({.handle = ++m_lastHandle, .application = application});
    return m_lastHandle;
}

} // namespace quillary
