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

namespace quillary {

namespace {

constexpr double bounceLimit = 6.0;

// Fitting bounds the icons of a dock that has any. An empty one takes the stored size as it stands, which may
// be more than a window can be.
constexpr double largestIconSize = 1024;

} // namespace

DockModel::DockModel(std::string screenKey, DockConfig config, DockManager* owner,
                     std::shared_ptr<RunningApps> tracker, std::shared_ptr<MemoryMonitor> monitor,
                     Platform& system)
    : key(std::move(screenKey)),
      running(std::move(tracker)),
      memory(std::move(monitor)),
      platform(system),
      manager(owner),
      configuration(std::move(config)),
      arranged(makeRow()) {
    connect(running.get(), &RunningApps::appsChanged, this, &DockModel::followApps);
}

DockModel::~DockModel() = default;

void DockModel::setScreenName(std::string screenName) {
    name = std::move(screenName);
    Q_EMIT screenNameChanged();
}

void DockModel::setShowMemory(bool shown) {
    memoryShown = shown;
    Q_EMIT showMemoryChanged();
}

void DockModel::setConfig(DockConfig config) {
    configuration = std::move(config);
    arranged = makeRow();
    // First, so that the dock's parts set out for their new places before anything else happens to them.
    Q_EMIT rowChanged();
    Q_EMIT configChanged();
}

void DockModel::setHidden(bool hidden) {
    isHidden = hidden;
    Q_EMIT hiddenChanged();
}

void DockModel::setMaxLength(double length) {
    longest = length;
    arranged = makeRow();
    Q_EMIT rowChanged();
    Q_EMIT maxLengthChanged();
}

void DockModel::setMouse(std::optional<QPointF> point) {
    if (point == pointer) {
        return;
    }
    const bool crossed = point.has_value() != pointer.has_value();
    pointer = point;
    Q_EMIT mouseChanged(crossed ? Transition::animated : Transition::immediate);
}

std::vector<DockCell> DockModel::listedCells() const {
    const auto& pinned = configuration.items;
    std::vector<DockCell> result;
    result.reserve(pinned.size() + 1 + running->apps().size());
    for (const std::string& path : pinned) {
        result.push_back(DockCell::item(path, DockCell::Origin::pinned));
    }
    if (!configuration.showRunning) {
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
        result.push_back(DockCell::item(*path, DockCell::Origin::running));
    }
    return result;
}

DockGeometry DockModel::geometry(const std::vector<DockCell>& cells) const {
    return {configuration, std::min(configuration.iconSize, largestIconSize), cells, longest};
}

DockRow DockModel::makeRow() const {
    auto cells = listedCells();
    const DockGeometry layout = geometry(cells);
    return {std::move(cells), layout};
}

void DockModel::followApps() {
    arranged = makeRow();
    settleBouncing();
    Q_EMIT rowChanged();
}

std::optional<std::string> DockModel::hoveredPath() const {
    if (!pointer) {
        return std::nullopt;
    }
    const DockGeometry& layout = arranged.geometry;
    const double along = layout.along(*pointer);
    const auto scales = layout.scales(along, cells());
    const auto hit = layout.hitTest(along, cells(), layout.layout(scales).centers, scales);
    return hit ? std::optional(cells()[*hit].path) : std::nullopt;
}

void DockModel::update(const std::function<void(DockConfig&)>& change) {
    if (manager) {
        manager->update(key, change);
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
    Workspace& workspace = platform.workspace();
    if (!platform.files().isApplication(path)) {
        workspace.open(path);
        return;
    }
    if (configuration.bounceOnLaunch && running->app(path) == nullptr) {
        startBouncing(path);
    }
    workspace.openApplication(path);
}

void DockModel::startBouncing(const std::string& path) {
    // The limit runs from the click that began it: further clicks while it bounces do not prolong it.
    if (bouncingPaths.insert(path).second) {
        bounceLimits[path] = platform.scheduler().after(bounceLimit, [this, path] { stopBouncing(path); });
    }
    Q_EMIT bouncingChanged();
}

void DockModel::stopBouncing(const std::string& path) {
    bounceLimits.erase(path);
    if (bouncingPaths.erase(path) > 0) {
        Q_EMIT bouncingChanged();
    }
}

void DockModel::settleBouncing() {
    const auto settled = std::erase_if(
        bouncingPaths, [this](const std::string& path) { return running->app(path) != nullptr; });
    if (settled > 0) {
        std::erase_if(bounceLimits,
                      [this](const auto& limit) { return !bouncingPaths.contains(limit.first); });
        Q_EMIT bouncingChanged();
    }
}

} // namespace quillary
