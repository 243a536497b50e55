#pragma once

#include "app/ItemId.h"
#include "app/view/DockScene.h"
#include "app/view/drag/FileDrop.h"

#include <QPointF>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillary {

class DockModel;
class Platform;

/// Carries out drops on a dock.
class DockDrops {
public:
    /// What is under a drag: the background, or an icon's square.
    struct Target {
        /// Absent for the background.
        std::optional<ItemId> item{};
        bool operator==(const Target&) const = default;
    };

    /// The platform must outlive the object.
    DockDrops(std::shared_ptr<DockModel> model, Platform& platform);

    /// The target at a point of the scene (panel coordinates); absent when there is none or it does not
    /// accept these items. The background accepts files, icons accept files and text.
    [[nodiscard]] static std::optional<Target> target(const DockScene& scene, QPointF point,
                                                      const std::vector<ItemProvider>& items);
    /// Pins the files, moves or pins the entry, or opens the files with the application that they were
    /// dropped on. Other items change nothing. The URLs of files are read on workers; what follows happens in
    /// a later turn of the event loop, unless the model has been destroyed by then.
    void drop(const Target& target, const std::vector<ItemProvider>& items);

private:
    void dropEntry(const ItemId& onto, const std::string& dragged);
    void dropFiles(const Target& target, const std::vector<ItemProvider>& items);
    /// The item's place among the pinned ones; absent when it isn't pinned.
    [[nodiscard]] static std::optional<std::ptrdiff_t> pinnedIndex(const DockModel& model,
                                                                   const ItemId& item);

    std::shared_ptr<DockModel> m_model;
    Platform& m_platform;
};

} // namespace quillary
