#include "app/view/DockContents.h"

#include "app/DockModel.h"
#include "app/MemoryMonitor.h"
#include "app/RunningApps.h"
#include "platform/FileFacts.h"

namespace quillary {

DockContents DockContents::of(const DockModel& model, const FileFacts& files) {
    DockContents contents{
        .row = model.row(), .active = model.running->activePath(), .launching = model.bouncing()};
    const auto& figures = model.memory->byApp();
    for (const DockCell& cell : contents.row.cells) {
        if (!cell.isItem()) {
            continue;
        }
        if (model.running->app(cell.path) != nullptr) {
            contents.running.insert(cell.path);
        }
        if (!files.exists(cell.path)) {
            contents.missing.insert(cell.path);
        }
        const auto figure = figures.find(cell.path);
        if (model.showMemory() && figure != figures.end()) {
            contents.memory[cell.path] = {.badge = model.memory->badge(cell.path), .bytes = figure->second};
        }
    }
    return contents;
}

} // namespace quillary
