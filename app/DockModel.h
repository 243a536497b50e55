#pragma once

#include "app/DockRow.h"
#include "core/DockConfig.h"

#include <QObject>
#include <QPointF>
#include <QPointer>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillary {

class DockManager;
class MemoryMonitor;
class Platform;
class RunningApps;
class ScheduledTask;

/// The state of one dock, and what can be done with its items. The manager alone writes the configuration;
/// the panel writes the pointer, `hidden` and `maxLength`; views read everything.
///
/// Every signal is emitted on every assignment, changed or not, after the new value is in place.
class DockModel : public QObject {
    Q_OBJECT

public:
    /// How a new pointer position is to be shown.
    enum class Transition {
        /// The pointer moved within the dock: magnification follows at once.
        immediate,
        /// It entered or left: icons grow or shrink over 0.18 s, easing out.
        animated,
    };

    /// After the manager has been destroyed, operations that need it do nothing. The platform must outlive
    /// the model.
    DockModel(std::string screenKey, DockConfig config, DockManager* manager,
              std::shared_ptr<RunningApps> tracker, std::shared_ptr<MemoryMonitor> monitor,
              Platform& platform);
    ~DockModel() override;

    /// The screen this dock belongs to.
    const std::string key;
    const std::shared_ptr<RunningApps> running;
    const std::shared_ptr<MemoryMonitor> memory;

    [[nodiscard]] const std::string& screenName() const { return m_screenName; }
    [[nodiscard]] bool showMemory() const { return m_showMemory; }
    [[nodiscard]] const DockConfig& config() const { return m_config; }
    /// The pointer in panel coordinates (points, origin top-left, y down) while it is on the dock.
    [[nodiscard]] std::optional<QPointF> mouse() const { return m_mouse; }
    [[nodiscard]] bool hidden() const { return m_hidden; }
    /// Along-length of the screen's visible frame, points; 0 until the panel is placed.
    [[nodiscard]] double maxLength() const { return m_maxLength; }
    /// Paths of the applications that are being launched from this dock.
    [[nodiscard]] const std::set<std::string, std::less<>>& bouncing() const { return m_bouncing; }

    void setScreenName(std::string screenName);
    void setShowMemory(bool show);
    void setConfig(DockConfig config);
    void setHidden(bool hidden);
    void setMaxLength(double length);
    /// Does nothing, and emits nothing, for the position that it already has.
    void setMouse(std::optional<QPointF> mouse);

    /// The pinned items, then, when running applications are shown, a separator (if both groups have any) and
    /// the running applications that are not pinned. Valid until rowChanged.
    [[nodiscard]] const std::vector<DockCell>& cells() const { return m_row.cells; }
    /// The cells with their layout. Valid until rowChanged.
    [[nodiscard]] const DockRow& row() const { return m_row; }
    /// The layout of some cells in this dock. Without items, which fitting limits to the screen, the icon
    /// size counts as at most 2048 points.
    [[nodiscard]] DockGeometry geometry(const std::vector<DockCell>& cells) const;
    /// The path of the item under the pointer, if any.
    [[nodiscard]] std::optional<std::string> hoveredPath() const;

    /// Changes this dock's configuration through the manager, which saves it and calls setConfig.
    void update(const std::function<void(DockConfig&)>& change);
    /// Pins the paths at an index or at the end; those already pinned move there.
    void add(const std::vector<std::string>& paths, std::optional<std::ptrdiff_t> index = std::nullopt);
    /// Moves the pinned item at one index to another, both counted before the move. One that does not exist
    /// changes nothing; a target past the end means the end.
    void move(std::ptrdiff_t from, std::ptrdiff_t to);
    /// Unpins every entry equal to the path.
    void remove(const std::string& path);
    /// Brings an application to the front or launches it (with its icon bouncing, when configured, until it
    /// runs or 6 s have passed); opens anything else with its default application.
    void open(const std::string& path);

Q_SIGNALS:
    void screenNameChanged();
    void showMemoryChanged();
    void configChanged();
    void mouseChanged(quillary::DockModel::Transition transition);
    void hiddenChanged();
    void maxLengthChanged();
    void bouncingChanged();
    /// The row was made again: for a new configuration or length, and each time the tracker has listed the
    /// running applications; never for the pointer.
    void rowChanged();

private:
    [[nodiscard]] std::vector<DockCell> listedCells() const;
    [[nodiscard]] DockRow makeRow() const;
    void followApps();
    void startBouncing(const std::string& path);
    void stopBouncing(const std::string& path);
    void settleBouncing();

    Platform& m_platform;
    QPointer<DockManager> m_manager;
    std::string m_screenName;
    bool m_showMemory = false;
    DockConfig m_config;
    std::optional<QPointF> m_mouse;
    bool m_hidden = false;
    double m_maxLength = 0;
    DockRow m_row;
    std::set<std::string, std::less<>> m_bouncing;
    std::map<std::string, std::unique_ptr<ScheduledTask>, std::less<>> m_bounceLimits;
};

} // namespace quillary
