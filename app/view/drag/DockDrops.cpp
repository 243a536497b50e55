#include "app/view/drag/DockDrops.h"

#include "app/DockModel.h"
#include "platform/FileFacts.h"
#include "platform/Platform.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <algorithm>

namespace quillary {

DockDrops::DockDrops(std::shared_ptr<DockModel> model, Platform& platform)
    : m_model(std::move(model)), m_platform(platform) {}

std::optional<DockDrops::Target> DockDrops::target(const DockScene& scene, QPointF point,
                                                   const std::vector<ItemProvider>& items) {
    const bool files = carriesFiles(items);
    if (!files && !textWithoutFile(items)) {
        return std::nullopt;
    }
    if (const DockScene::Icon* icon = scene.iconAt(point, DockScene::Reach::square)) {
        return Target{icon->id()};
    }
    return files && scene.background.rect.contains(point) ? std::optional(Target{}) : std::nullopt;
}

void DockDrops::drop(const Target& target, const std::vector<ItemProvider>& items) {
    const auto text = target.item ? textWithoutFile(items) : std::nullopt;
    if (!text) {
        dropFiles(target, items);
    } else if (text->starts_with(itemPrefix)) {
        dropEntry(*target.item, text->substr(itemPrefix.size()));
    }
}

void DockDrops::dropEntry(const ItemId& onto, const std::string& dragged) {
    const std::vector<std::string>& pinned = m_model->config().items;
    const std::ptrdiff_t count = std::ssize(pinned);
    const std::ptrdiff_t target = std::min(pinnedIndex(*m_model, onto).value_or(count), count);
    // The text names a path only: of several items the first one is moved.
    if (const auto from = pinnedIndex(*m_model, {dragged})) {
        m_model->move(*from, std::min(count - 1, target));
    } else if (dragged.starts_with('/')) {
        m_model->add({dragged}, target);
    }
}

void DockDrops::dropFiles(const Target& target, const std::vector<ItemProvider>& items) {
    loadFileURLs(items, m_platform.scheduler(),
                 [weak = std::weak_ptr(m_model), target,
                  &platform = m_platform](const std::vector<std::string>& paths) {
                     const auto dock = weak.lock();
                     if (!dock || paths.empty()) {
                         return;
                     }
                     if (target.item && platform.files().isApplication(target.item->path)) {
                         platform.workspace().openWith(paths, target.item->path);
                     } else {
                         dock->add(paths, target.item ? pinnedIndex(*dock, *target.item) : std::nullopt);
                     }
                 });
}

std::optional<std::ptrdiff_t> DockDrops::pinnedIndex(const DockModel& model, const ItemId& item) {
    const auto& items = model.config().items;
    std::size_t before = item.occurrence;
    const auto found = std::ranges::find_if(
        items, [&](const std::string& path) { return path == item.path && before-- == 0; });
    return found == items.end() ? std::nullopt : std::optional(found - items.begin());
}

} // namespace quillary
