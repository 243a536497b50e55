#include "platform/linux/LinuxWorkspace.h"

#include "core/Paths.h"
#include "platform/SystemLog.h"
#include "platform/linux/LinuxFolders.h"
#include "platform/linux/entries/DesktopEntries.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/icons/IconTheme.h"
#include "platform/linux/icons/PathIcons.h"
#include "platform/linux/windows/WindowSource.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

#include <glib.h>

namespace quillary {

namespace {

constexpr std::string_view bundleSuffix = ".app";
constexpr const char* ownId = "quillary.desktop";
// Applications with windows have handles from 1 on.
constexpr std::uint64_t ownHandle = 0;

RunningApplication running(const WindowApplication& application) {
    return {.handle = application.handle,
            .policy = ActivationPolicy::regular,
            .bundlePath = application.path,
            .bundleIdentifier = application.id};
}

bool contains(const std::vector<std::uint64_t>& list, std::uint64_t id) {
    return std::ranges::find(list, id) != list.end();
}

} // namespace

LinuxWorkspace::LinuxWorkspace(WindowSource& windows, DesktopEntries& entries, Scheduler& scheduler,
                               SystemLog& log, const StartupNotification* notification,
                               std::string sessionIconTheme)
    : m_windows(windows),
      m_log(log),
      m_entries(entries),
      m_launcher(scheduler, log, notification),
      m_sessionIconTheme(std::move(sessionIconTheme)) {
    connect(&m_windows, &WindowSource::windowsChanged, this, &LinuxWorkspace::notifyChanges);
    connect(&m_windows, &WindowSource::activeWindowChanged, this, &LinuxWorkspace::notifyChanges);
    connect(&m_windows, &WindowSource::fullScreenChanged, this, &LinuxWorkspace::fullScreenChanged);
    connect(&m_entries, &DesktopEntries::changed, this, [this] {
        m_applications.forgetMatches();
        notifyChanges();
    });
}

LinuxWorkspace::~LinuxWorkspace() = default;

const std::vector<WindowApplication>& LinuxWorkspace::refreshed() const {
    m_applications.update(m_windows.windows(), m_entries.index());
    return m_applications.list();
}

std::optional<RunningApplication> LinuxWorkspace::activeApplication() const {
    if (m_windows.isOwnWindowActive()) {
        const auto* entry = m_entries.index().find(EntryIndex::Key::id, ownId);
        return RunningApplication{.handle = ownHandle,
                                  .policy = ActivationPolicy::regular,
                                  .bundlePath = entry != nullptr ? std::optional(entry->path) : std::nullopt,
                                  .bundleIdentifier = ownId};
    }
    const auto window = m_windows.activeWindow();
    const auto* application = window ? m_applications.owner(*window) : nullptr;
    return application != nullptr ? std::optional(running(*application)) : std::nullopt;
}

LinuxWorkspace::State LinuxWorkspace::state() const {
    State current;
    for (const auto& application : m_applications.list()) {
        current.running.insert(application.handle);
    }
    if (const auto active = activeApplication()) {
        current.active = active->handle;
    }
    return current;
}

// The state at the first reading is not a change. A reading between a later change and the window system's
// signal leaves the state alone, so that the change is still notified.
void LinuxWorkspace::noteFirstReading() const {
    if (!m_notified) {
        m_notified = state();
    }
}

void LinuxWorkspace::notifyChanges() {
    refreshed();
    const auto before = m_notified.value_or(State());
    const auto now = state();
    m_notified = now;
    const bool launched = !std::ranges::includes(before.running, now.running);
    const bool terminated = !std::ranges::includes(now.running, before.running);
    if (launched) {
        Q_EMIT applicationLaunched();
    }
    if (terminated) {
        Q_EMIT applicationTerminated();
    }
    if (before.active != now.active) {
        Q_EMIT applicationActivated();
    }
}

std::vector<RunningApplication> LinuxWorkspace::runningApplications() const {
    std::vector<RunningApplication> result;
    for (const auto& application : refreshed()) {
        result.push_back(running(application));
    }
    noteFirstReading();
    return result;
}

std::optional<RunningApplication> LinuxWorkspace::frontmostApplication() const {
    refreshed();
    noteFirstReading();
    return activeApplication();
}

DesktopNow LinuxWorkspace::desktopNow() const {
    DesktopNow now;
    const auto& index = m_entries.index();
    for (const auto& application : refreshed()) {
        const auto* entry = index.find(EntryIndex::Key::path, application.path);
        now.entries.push_back({.path = application.path,
                               .id = application.id,
                               .sandbox = entry != nullptr ? entry->sandbox : std::string()});
    }
    std::ranges::sort(now.entries, {}, &DesktopNow::Entry::path);
    for (const auto& window : m_windows.windows()) {
        const auto* owner = m_applications.owner(window.id);
        if (owner != nullptr && window.pid > 0) {
            now.windows.push_back({.pid = window.pid, .path = owner->path});
        }
    }
    return now;
}

std::optional<QRectF> LinuxWorkspace::fullScreenFrame() const {
    return m_windows.fullScreenFrame();
}

std::optional<std::string> LinuxWorkspace::ownBundleIdentifier() const {
    return ownId;
}

bool LinuxWorkspace::isApplication(const std::string& path) const {
    return path.ends_with(bundleSuffix) || (path.ends_with(entrySuffix) && !isFolder(path));
}

bool LinuxWorkspace::exists(const std::string& path) const {
    std::error_code error;
    return !path.empty() && std::filesystem::exists(path, error);
}

std::optional<DesktopEntry> LinuxWorkspace::entryAt(const std::string& path) const {
    if (!path.ends_with(entrySuffix)) {
        return std::nullopt;
    }
    if (const auto* entry = m_entries.index().find(EntryIndex::Key::path, path)) {
        return *entry;
    }
    // Entries are found elsewhere, too, for example on the desktop.
    return readDesktopEntry(path, std::string(baseName(path)), {});
}

std::string LinuxWorkspace::displayName(const std::string& path) const {
    if (const auto entry = entryAt(path); entry && !entry->hidden) {
        return entry->localisedName;
    }
    const auto plain = withoutTrailingSlashes(path);
    if (plain == "/") {
        return "File System";
    }
    if (plain == withoutTrailingSlashes(LinuxFolders::home())) {
        return "Home";
    }
    // The name that GFile gives a local file, without starting the virtual file systems, which block on the
    // session bus.
    return takeText(g_filename_display_basename(plain.c_str()));
}

QIcon LinuxWorkspace::icon(const std::string& path) const {
    if (!m_iconsReady) {
        IconTheme::apply(m_sessionIconTheme);
        m_iconsReady = true;
    }
    if (isFolder(path)) {
        return PathIcons::ofFolder(path);
    }
    if (isApplication(path)) {
        const auto entry = entryAt(path);
        return PathIcons::ofEntry(entry ? entry->icon : std::string());
    }
    return PathIcons::ofFile(path);
}

std::vector<std::uint64_t> LinuxWorkspace::topDown(const WindowApplication& application) const {
    std::vector<std::uint64_t> result;
    const auto stack = m_windows.stackingOrder();
    std::copy_if(stack.rbegin(), stack.rend(), std::back_inserter(result),
                 [&application](std::uint64_t id) { return contains(application.windows, id); });
    std::copy_if(application.windows.rbegin(), application.windows.rend(), std::back_inserter(result),
                 [&stack](std::uint64_t id) { return !contains(stack, id); });
    return result;
}

void LinuxWorkspace::openApplication(const std::string& path) {
    const auto& list = refreshed();
    const auto place = std::ranges::find(list, path, &WindowApplication::path);
    if (place == list.end()) {
        m_launcher.launch(path);
        return;
    }
    const auto windows = m_windows.windows();
    const auto canComeUp = [&windows](std::uint64_t id) {
        const auto found = std::ranges::find(windows, id, &WindowInfo::id);
        // Dialogs often keep out of task bars and can be activated; desktops and panels do so too and cannot.
        return found != windows.end() && (found->normal || found->transientFor != 0);
    };
    const auto order = topDown(*place);
    const auto top = std::ranges::find_if(order, canComeUp);
    if (top != order.end()) {
        m_windows.activate(*top);
    }
}

void LinuxWorkspace::open(const std::string& path) {
    m_launcher.open(path);
}

void LinuxWorkspace::openWith(const std::vector<std::string>& paths, const std::string& application) {
    m_launcher.launch(application, paths);
}

void LinuxWorkspace::reveal(const std::string& path) {
    m_launcher.reveal(path);
}

void LinuxWorkspace::terminate(const RunningApplication& application) {
    const auto& list = refreshed();
    const auto place = std::ranges::find(list, application.handle, &WindowApplication::handle);
    if (place == list.end()) {
        m_log.write("Quillary: could not quit an application that is no longer running");
        return;
    }
    // Dialogs before the windows below them, which often refuse to close while they are open.
    const auto windows = topDown(*place);
    for (const auto id : windows) {
        m_windows.close(id);
    }
}

} // namespace quillary
