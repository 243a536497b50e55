#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QImage;

namespace quillary {

class DockManager;
class FileFacts;
class Platform;
class ScheduledTask;

/// Writes pictures of every dock and of the settings window and a text report, so that a script can check the
/// program. An environment variable requests it. What cannot be drawn or written is left out without a
/// message, and the program ends all the same.
class DebugSnapshot {
public:
    /// Names the folder for the files; it must exist.
    static constexpr const char* variable = "QY_SNAPSHOT_DIR";

    /// When the variable is set and not empty: pictures the docks once they have settled (8 s), shows the
    /// settings window, pictures that and writes the report 1 s later, then ends the program. Otherwise null.
    /// Manager and platform must outlive the returned snapshot.
    [[nodiscard]] static std::unique_ptr<DebugSnapshot>
    runIfRequested(DockManager& manager, Platform& platform, std::function<void()> showSettings);

    /// `showSettings` shows the settings window, `terminate` ends the program.
    DebugSnapshot(std::filesystem::path folder, DockManager& manager, Platform& platform,
                  std::function<void()> showSettings, std::function<void()> terminate);
    ~DebugSnapshot();

    /// The report's text, without a line feed at its end.
    [[nodiscard]] static std::string report(const DockManager& manager, const FileFacts& files);

private:
    void takeDocks();
    void finish();
    void writeDockPictures() const;
    void writeSettingsPicture() const;
    void writePicture(const std::string& name, const QImage& picture) const;

    std::filesystem::path m_folder;
    DockManager& m_manager;
    Platform& m_platform;
    std::function<void()> m_showSettings;
    std::function<void()> m_terminate;
    std::unique_ptr<ScheduledTask> m_work;
};

} // namespace quillary
