#include "app/DockModel.h"

#include "app/DockManager.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "core/DockItems.h"
#include "platform/FileFacts.h"
#include "platform/Platform.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace quillary {

namespace {

constexpr double bounceLimit = 6.0;

// Fitting limits the icons of a dock to its screen. An empty dock has nothing to fit, and its stored size may
// be more than a window can have.
constexpr double largestSizeOfEmptyDock = 2048;

} // namespace

DockModel::DockModel(std::string screenKey, DockConfig config, DockManager* manager,
                     std::shared_ptr<RunningApps> tracker, std::shared_ptr<MemoryMonitor> monitor,
                     Platform& platform)
    : key(std::move(screenKey)),
      running(std::move(tracker)),
      memory(std::move(monitor)),
      m_platform(platform),
      m_manager(manager),
      m_config(std::move(config)),
      m_row(makeRow()) {
    connect(running.get(), &RunningApps::appsChanged, this, &DockModel::followApps);
}

DockModel::~DockModel() = default;

void DockModel::setScreenName(std::string screenName) {
    m_screenName = std::move(screenName);
    Q_EMIT screenNameChanged();
}

void DockModel::setShowMemory(bool show) {
    m_showMemory = show;
    Q_EMIT showMemoryChanged();
}

void DockModel::setConfig(DockConfig config) {
    m_config = std::move(config);
    m_row = makeRow();
    // Emitted first: views start their transition from what is shown, which other slots may change.
    Q_EMIT rowChanged();
    Q_EMIT configChanged();
}

void DockModel::setHidden(bool hidden) {
    m_hidden = hidden;
    Q_EMIT hiddenChanged();
}

void DockModel::setMaxLength(double length) {
    m_maxLength = length;
    m_row = makeRow();
    Q_EMIT rowChanged();
    Q_EMIT maxLengthChanged();
}

void DockModel::setMouse(std::optional<QPointF> mouse) {
    if (mouse == m_mouse) {
        return;
    }
    const bool crossed = mouse.has_value() != m_mouse.has_value();
    m_mouse = mouse;
    Q_EMIT mouseChanged(crossed ? Transition::animated : Transition::immediate);
}

std::vector<DockCell> DockModel::listedCells() const {
    const auto& pinned = m_config.items;
    std::vector<DockCell> result;
    result.reserve(pinned.size() + 1 + running->apps().size());
    std::unordered_map<std::string_view, std::size_t> occurrences;
    for (const std::string& path : pinned) {
        result.push_back(DockCell::item(path, DockCell::Origin::pinned, occurrences[path]++));
    }
    if (!m_config.showRunning) {
        return result;
    }
    bool separated = pinned.empty();
    for (const RunningApplication& application : running->apps()) {
        const auto& path = application.bundlePath;
        if (!path || std::ranges::find(pinned, *path) != pinned.end()) {
            continue;
        }
        if (!separated) {
            result.push_back(DockCell::separator());
            separated = true;
        }
        result.push_back(DockCell::item(*path, DockCell::Origin::running, occurrences[*path]++));
    }
    return result;
}

DockGeometry DockModel::geometry(const std::vector<DockCell>& cells) const {
    const double size = std::ranges::any_of(cells, &DockCell::isItem)
                            ? m_config.iconSize
                            : std::min(m_config.iconSize, largestSizeOfEmptyDock);
    return {m_config, size, cells, m_maxLength};
}

DockRow DockModel::makeRow() const {
    auto cells = listedCells();
    const DockGeometry layout = geometry(cells);
    return {std::move(cells), layout};
}

void DockModel::followApps() {
    m_row = makeRow();
    settleBouncing();
    Q_EMIT rowChanged();
}

std::optional<std::string> DockModel::hoveredPath() const {
    if (!m_mouse) {
        return std::nullopt;
    }
    const DockGeometry& layout = m_row.geometry;
    const double mouseAxis = layout.along(*m_mouse);
    const auto scales = layout.scales(mouseAxis, cells());
    const auto hit = layout.hitTest(mouseAxis, cells(), layout.layout(scales).centers, scales);
    return hit ? std::optional(cells()[*hit].path) : std::nullopt;
}

void DockModel::update(const std::function<void(DockConfig&)>& change) {
    if (m_manager) {
        m_manager->update(key, change);
    }
}

void DockModel::add(const std::vector<std::string>& paths, std::optional<std::ptrdiff_t> index) {
    update([&paths, index](DockConfig& config) {
        config.items = DockItems::adding(paths, config.items, index);
    });
}

void DockModel::move(std::ptrdiff_t from, std::ptrdiff_t to) {
    update([from, to](DockConfig& config) { config.items = DockItems::moving(config.items, from, to); });
}

void DockModel::remove(const std::string& path) {
    update([&path](DockConfig& config) { std::erase(config.items, path); });
}

void DockModel::open(const std::string& path) {
    Workspace& workspace = m_platform.workspace();
    if (!m_platform.files().isApplication(path)) {
        workspace.open(path);
        return;
    }
    if (m_config.bounceOnLaunch && running->app(path) == nullptr) {
        startBouncing(path);
    }
    workspace.openApplication(path);
}

void DockModel::startBouncing(const std::string& path) {
    // The limit runs from the click that began it: further clicks while it bounces do not prolong it.
    if (m_bouncing.insert(path).second) {
        m_bounceLimits[path] =
            m_platform.scheduler().after(bounceLimit, [this, path] { stopBouncing(path); });
    }
    Q_EMIT bouncingChanged();
}

void DockModel::stopBouncing(const std::string& path) {
    m_bounceLimits.erase(path);
    if (m_bouncing.erase(path) > 0) {
        Q_EMIT bouncingChanged();
    }
}

void DockModel::settleBouncing() {
    const auto settled =
        std::erase_if(m_bouncing, [this](const std::string& path) { return running->app(path) != nullptr; });
    if (settled > 0) {
        std::erase_if(m_bounceLimits,
                      [this](const auto& limit) { return !m_bouncing.contains(limit.first); });
        Q_EMIT bouncingChanged();
    }
}

} // namespace quillary
