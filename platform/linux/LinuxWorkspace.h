#pragma once

#include "platform/FileFacts.h"
#include "platform/FileIcons.h"
#include "platform/Workspace.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/launch/Launcher.h"
#include "platform/linux/windows/DesktopNow.h"
#include "platform/linux/windows/WindowApplications.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillary {

class DesktopEntries;
class Scheduler;
class SystemLog;
class WindowSource;

/// Applications as desktop entries and the windows that belong to them. An application runs while it has a
/// window for docks; windows that belong to no entry are left out. Its identifier is the desktop file id. An
/// application's policy is always regular.
class LinuxWorkspace final : public Workspace, public FileFacts, public FileIcons {
    Q_OBJECT

public:
    /// All of them must outlive the workspace; the notification may be null. `sessionIconTheme` is the icon
    /// theme that the session's settings manager names, if one runs. Does not read anything yet.
    LinuxWorkspace(WindowSource& windows, DesktopEntries& entries, Scheduler& scheduler, SystemLog& log,
                   const StartupNotification* notification = nullptr, std::string sessionIconTheme = {});
    ~LinuxWorkspace() override;

    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    /// This program itself while one of its windows has the focus; its path is absent unless its entry is
    /// installed.
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] std::optional<QRectF> fullScreenFrame() const override;
    /// The id under which this program installs its own entry.
    [[nodiscard]] std::optional<std::string> ownBundleIdentifier() const override;

    [[nodiscard]] bool isApplication(const std::string& path) const override;
    [[nodiscard]] bool exists(const std::string& path) const override;
    [[nodiscard]] std::string displayName(const std::string& path) const override;
    [[nodiscard]] QIcon icon(const std::string& path) const override;

    void openApplication(const std::string& path) override;
    void open(const std::string& path) override;
    void openWith(const std::vector<std::string>& paths, const std::string& application) override;
    void reveal(const std::string& path) override;
    void terminate(const RunningApplication& application) override;

    /// Which processes show windows of which running applications now. Windows that name no process are left
    /// out.
    [[nodiscard]] DesktopNow desktopNow() const;

private:
    /// The state that listeners were last notified of.
    struct State {
        std::set<std::uint64_t> running;
        std::optional<std::uint64_t> active;
    };

    const std::vector<WindowApplication>& refreshed() const;
    [[nodiscard]] std::optional<RunningApplication> activeApplication() const;
    [[nodiscard]] State state() const;
    void noteFirstReading() const;
    void notifyChanges();
    [[nodiscard]] std::optional<DesktopEntry> entryAt(const std::string& path) const;
    [[nodiscard]] std::vector<std::uint64_t> topDown(const WindowApplication& application) const;

    WindowSource& m_windows;
    SystemLog& m_log;
    DesktopEntries& m_entries;
    Launcher m_launcher;
    mutable WindowApplications m_applications;
    mutable std::optional<State> m_notified;
    std::string m_sessionIconTheme;
    mutable bool m_iconsReady = false;
};

} // namespace quillary
